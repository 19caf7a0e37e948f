@echo off
rem Run by the launcher before every match it starts with the Quake2 game.
rem The launcher waits for it to end, then starts the game itself.
echo Preparing Quake 2 for the match...
if exist "%~dp0motd.txt" type "%~dp0motd.txt"
