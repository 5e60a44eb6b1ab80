@echo off
rem Registers KT7HRLib and KT7Database2 where they lie: for every user of the machine, which takes an
rem administrator, or with the word "user" for the current user alone. With /u before it the
rem registration is taken back.
rem   register.cmd [/u] [user]
setlocal
set here=%~dp0
set options=/s
set did=registered
if /i "%~1"=="/u" (
  set options=/s /u
  set did=unregistered
  shift
)
if /i "%~1"=="user" set options=%options% /n /i:user
set failed=

rem System32 is of the kind of the process that asks: for one of 32 bits on a 64-bit Windows, the
rem 64-bit programs are in Sysnative. A 32-bit Windows has them nowhere.
set tools64=%SystemRoot%\System32
set tools32=%SystemRoot%\SysWOW64
if /i not "%PROCESSOR_ARCHITECTURE%"=="x86" goto :register
set tools64=%SystemRoot%\Sysnative
if defined PROCESSOR_ARCHITEW6432 goto :register
set tools64=
set tools32=%SystemRoot%\System32

:register
if defined tools64 call :both "%tools64%\regsvr32.exe" x64
call :both "%tools32%\regsvr32.exe" x86
if defined failed exit /b 1
echo The library was %did%.
exit /b 0

:both
if not exist %1 exit /b 0
call :one %1 %2 KT7HRLib.dll
call :one %1 %2 KT7Database2.dll
exit /b 0

:one
if not exist "%here%%2\%3" exit /b 0
%1 %options% "%here%%2\%3"
if not errorlevel 1 exit /b 0
echo %2\%3 could not be %did%.
set failed=yes
exit /b 0
