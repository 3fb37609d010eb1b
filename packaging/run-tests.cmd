@echo off
rem Runs all tests of the kit on this computer and writes the folder "report". Each test runs in its
rem own process. A double click starts it; at the end, the window waits for a key.
setlocal enabledelayedexpansion
cd /d "%~dp0"
set "kit=%CD%"
set "report=%CD%\report"
if exist "%report%" rmdir /s /q "%report%"
mkdir "%report%\scenarios"
mkdir "%report%\work"
set passed=0
set failed=0
set number=0

call :system >"%report%\system.txt" 2>&1
rem The scenarios run first: under Wine, the first window starts a service that keeps the output
rem file of its program open, so that this output cannot be appended to output.txt.
echo This takes some minutes. Windows open and close; please do not touch them.
for /f "usebackq tokens=1,2" %%a in ("%kit%\scenarios.txt") do call :scenario %%a %%b
for /f "usebackq tokens=1,2,3" %%a in ("%kit%\tests.txt") do call :test %%a %%b %%c

cd /d "%kit%"
rmdir /s /q "%report%\work" 2>nul
echo %passed% passed, %failed% failed>"%report%\summary.txt"
echo.
echo %passed% passed, %failed% failed
echo Please send the folder "%report%".
if not defined KORVEL_NO_PAUSE pause
if %failed%==0 exit /b 0
exit /b 1

:system
ver
echo processor: %PROCESSOR_ARCHITECTURE% %PROCESSOR_IDENTIFIER%, %NUMBER_OF_PROCESSORS% cores
"%kit%\bin\korvel-player.exe" --version
goto :eof

rem :test FOLDER PROGRAM NAME runs one test, in the folder bin of the kit or in a work folder. Each
rem test has its own output file, because a service that it starts may keep that file open.
:test
if %1==bin (cd /d "%kit%\bin") else (cd /d "%report%\work")
set /a number+=1
set "output=%report%\work\output%number%.txt"
"%kit%\tests\%2.exe" --gtest_filter=%3 >"%output%" 2>&1
set status=!errorlevel!
if not exist "%output%" set status=none
call :count %2 %3
if exist "%output%" type "%output%" >>"%report%\output.txt"
goto :eof

rem :scenario NAME STATUS plays one scenario, which should end the player with that status. The
rem pictures are compared later, when windows_report.py evaluates the report.
:scenario
mkdir "%report%\scenarios\%1"
cd /d "%report%\scenarios\%1"
set "player=%kit%\bin\korvel-player.exe"
if exist "%kit%\scenarios\%1\player" set "player=%kit%\scenarios\%1\player\korvel-player.exe"
"%player%" "%kit%\scenarios\%1\carousel" --script "%kit%\scenarios\%1\script" --verbose >output 2>log
set status=!errorlevel!
if %status%==%2 (set status=0) else (set status=%status%_instead_of_%2)
call :count scenario %1
goto :eof

rem :count PROGRAM NAME counts the test as passed if %status% is 0, and logs the result.
:count
if %status%==0 (set /a passed+=1) else (set /a failed+=1)
set result=passed
if not %status%==0 set result=FAILED
echo %result% %1 %2 >>"%report%\results.txt"
if not %status%==0 echo FAILED %1 %2, status %status%
goto :eof
