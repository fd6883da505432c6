@echo off
rem Registers korvex.dll for all users, for the hosts of each width that this Windows runs. Needs an administrator.
rem The folder must stay where it is. register /u, or unregister.cmd, takes it back.
setlocal
set failed=0
if "%PROCESSOR_ARCHITECTURE%"=="x86" if not defined PROCESSOR_ARCHITEW6432 goto only32
rem A 32-bit prompt sees the 64-bit tools under another name.
set system=%SystemRoot%\System32
if defined PROCESSOR_ARCHITEW6432 set system=%SystemRoot%\Sysnative
call :server "%system%" x64 64-bit %1
call :server "%SystemRoot%\SysWOW64" x86 32-bit %1
exit /b %failed%

:only32
call :server "%SystemRoot%\System32" x86 32-bit %1
exit /b %failed%

:server
set what=registered
if "%4"=="/u" set what=unregistered
"%~1\regsvr32.exe" %4 /s "%~dp0%2\korvex.dll"
set code=%errorlevel%
if "%code%"=="0" echo %2\korvex.dll is %what% for %3 programs.
if not "%code%"=="0" set failed=1
if "%code%"=="5" echo %2\korvex.dll is not %what%: this needs an administrator. Right-click, Run as administrator.
if "%code%"=="3" echo %2\korvex.dll is not %what%: it cannot be loaded. Is it still in its folder?
if not "%code%"=="0" if not "%code%"=="3" if not "%code%"=="5" echo %2\korvex.dll is not %what%: regsvr32 ended with %code%.
exit /b
