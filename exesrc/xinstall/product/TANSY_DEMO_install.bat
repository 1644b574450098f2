@echo off
rem Completes the installation of program_name: makes its directories and records what was installed, when and where.
rem All paths follow from the place of this file, so the current directory does not matter.
setlocal
echo Installing program_name in "default_location\program_name"
set "HOME_DIR=%~dp0"
if not exist "%HOME_DIR%program_name.env" exit /b 1
for %%D in (data hlp tmp) do if not exist "%HOME_DIR%%%D" mkdir "%HOME_DIR%%%D"
set "RECORD=%HOME_DIR%installed.txt"
>"%RECORD%" echo program_name 1.0.0
>>"%RECORD%" echo installed on %DATE% at %TIME% with these settings:
type "%HOME_DIR%program_name.env" >>"%RECORD%"
endlocal
