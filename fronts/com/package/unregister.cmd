@echo off
rem Takes back what register.cmd did: for every user of the machine, which takes an
rem administrator, or with the word "user" for the current user alone.
rem   unregister.cmd [user]
call "%~dp0register.cmd" /u %1
