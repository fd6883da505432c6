@echo off
rem Takes back what register.cmd did. Needs an administrator.
call "%~dp0register.cmd" /u
