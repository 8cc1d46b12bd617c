@echo off
rem register.cmd FOLDER [/u]: registers the control and its texts, or takes them out again.
rem As an administrator for all users, else for yourself. 32 bits: %windir%\SysWOW64\cmd /c register.cmd FOLDER
regsvr32 /s %2 "%~1\vmGridViews.dll"
if errorlevel 1 exit /b 1
regsvr32 /s %2 "%~1\vmGridViewsStrings.dll"
if errorlevel 1 exit /b 1
