@echo off
rem Makes a demo home beside the user's own data, once, and starts the forms program and Vasclip on it.
setlocal
set "HOME_DIR=%LOCALAPPDATA%\Vasclip demo"
echo Vasclip on made-up data in "%HOME_DIR%". Nothing of yours is touched.
"%~dp0vasclip-demo.exe" --home "%HOME_DIR%" || (pause & exit /b 1)
start "" "%~dp0kelforms.exe" --home "%HOME_DIR%" --save-on-exit "C:\KEL\DATA\LAUREL.RPT" "C:\KEL\DATA\OAKST114.RPT" "C:\KEL\DATA\FERRY22.RPT"
start "" "%~dp0vasclip.exe" --home "%HOME_DIR%"
