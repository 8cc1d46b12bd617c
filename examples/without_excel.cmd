@echo off
rem without_excel.cmd FOLDER: what exports to Excel becomes a workbook of the library in FOLDER. As an administrator.
regsvr32 /s "%~1\vmgWorkbook.dll"
if errorlevel 1 exit /b 1
reg add HKLM\SOFTWARE\Velmora\vmGridViews /v excelProgId /d vmGridViews.Workbook /f >nul
