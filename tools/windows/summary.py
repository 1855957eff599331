"""What became of a test program's tests: summary.py NAME ACCOUNT.json LOG EXIT-CODE. Exit code 1 if one failed."""
import json
import os
import re
import sys

name, account, log, code = sys.argv[1], sys.argv[2], sys.argv[3], int(sys.argv[4])
good, skipped, failed = 0, [], []
if os.path.exists(account):
    with open(account, encoding="utf-8") as file:
        suites = json.load(file)["testsuites"]
    for suite in suites:
        for test in suite["testsuite"]:
            title = suite["name"] + "." + test["name"]
            if test.get("failures"):
                failed.append(title)
            elif test.get("result") == "SKIPPED":
                words = " ".join(line.strip() for part in test.get("skipped", []) for line in part["message"].splitlines()[1:])
                skipped.append(f"{title}: {words}")
            else:
                good += 1
    print(f"{name}: {good} good, {len(skipped)} skipped, {len(failed)} failed")
else:
    with open(log, encoding="utf-8", errors="replace") as file:
        said = file.read()
    last = re.findall(r"^\[ RUN +\] (\S+)", said, re.M)
    good = len(re.findall(r"^\[ +OK \]", said, re.M))
    why = "took too long" if code == 124 else f"ended with exit code {code}"
    print(f"{name}: {why} after {good} good tests" + (f", within {last[-1]}" if last else ""))
    failed = re.findall(r"^\[  FAILED  \] ([^\s,]+)", said, re.M)
for title in skipped:
    print("  skipped " + title)
for title in failed:
    print("  FAILED  " + title)
if failed or code != 0:
    print("  all that it said is in " + log)
sys.exit(1 if failed or code != 0 else 0)
