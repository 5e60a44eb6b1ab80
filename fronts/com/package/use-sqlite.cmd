@echo off
rem Lets KT7HRLib reach databases through KT7Database2 (SQLite) in place of the platform's own
rem data-access objects, for the current user; with the word "off" through the platform's again.
rem   use-sqlite.cmd [off]
setlocal
set key=HKCU\Software\KT7HRLib\ProgramIds
for %%r in (Connection Recordset) do (
  if /i "%~1"=="off" (
    reg delete %key% /v %%r /f >nul
  ) else (
    reg add %key% /v %%r /d KT7Database2.%%r /f >nul
  )
)
