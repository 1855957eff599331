"""What became of a test program's tests: summary.py NAME ACCOUNT.json LOG EXIT-CODE. Exit code 1 if one failed."""
import json
import os
import re
import sys

name, account, log, code = sys.argv[1], sys.argv[2], sys.argv[3], int(sys.argv[4])
good, skipped, failed = 0, [], []
said = ""
if os.path.exists(log):
    with open(log, encoding="utf-8", errors="replace") as file:
        said = file.read()


def words_of(title):
    """Why a test was skipped; its account does not tell."""
    told = re.search(rf"^\[ RUN +\] {re.escape(title)}\s*$(.*?)^\[  SKIPPED \] {re.escape(title)} ", said, re.M | re.S)
    lines = told.group(1).strip().splitlines() if told else []
    return " ".join(line.strip() for line in lines if not line.rstrip().endswith(": Skipped"))


if os.path.exists(account):
    with open(account, encoding="utf-8") as file:
        suites = json.load(file)["testsuites"]
    for suite in suites:
        for test in suite["testsuite"]:
            title = suite["name"] + "." + test["name"]
            if test.get("failures"):
                failed.append(title)
            elif test.get("result") == "SKIPPED":
                skipped.append(f"{title}: {words_of(title)}")
            else:
                good += 1
    print(f"{name}: {good} good, {len(skipped)} skipped, {len(failed)} failed")
else:
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
