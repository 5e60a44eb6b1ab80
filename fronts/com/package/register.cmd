@echo off
rem Registers KT7HRLib and KT7Database2 where they lie: for every user of the machine, which takes an
rem administrator, or with the word "user" for the current user alone.
rem   register.cmd [user]
setlocal
set options=/s
if /i "%~1"=="user" set options=/s /n /i:user
set failed=
call :both "%SystemRoot%\System32\regsvr32.exe" x64
call :both "%SystemRoot%\SysWOW64\regsvr32.exe" x86
if defined failed exit /b 1
echo Registered.
exit /b 0

:both
if not exist %1 exit /b 0
call :one %1 %2 KT7HRLib.dll
call :one %1 %2 KT7Database2.dll
exit /b 0

:one
if not exist "%~dp0%2\%3" exit /b 0
%1 %options% "%~dp0%2\%3"
if not errorlevel 1 exit /b 0
echo %2\%3 could not be registered.
set failed=yes
exit /b 0
