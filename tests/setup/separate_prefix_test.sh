#!/usr/bin/env bash
# Installs tessel.exe in a Wine prefix of its own, opens a folder-set file by its document type
# as a double-click does, and removes the installed copy with its settings again.
set -euo pipefail
here=$(cd "$(dirname "$0")/../.." && pwd)
bin=$here/build/win64/bin
export TESSEL_WINE_ROOT=$here/build/wine-setup
. "$here/scripts/wine-env.sh"
tessel_wine_warm || true
win() { "$WINE" "$@" </dev/null 2>/dev/null | tr -d '\r'; }
fail() { echo "FAIL: $*"; "$WINESERVER" -k 2>/dev/null || true; exit 1; }
query() { win reg query "$1" /ve 2>/dev/null | sed -n 's/.*REG_SZ[[:space:]]*//p' | head -1; }

programs=$(win cmd /c echo %LOCALAPPDATA% | tail -1)\\Programs\\Tessel
unix_programs=$(win winepath -u "$programs" | tail -1)
win "$bin/tessel.exe" -uninstall+ /quiet || true  # a run before may have stopped half way

win "$bin/tessel.exe" install /quiet
[ -f "$unix_programs/tessel.exe" ] || fail "not copied to $programs"
[ -f "$unix_programs/help/index.html" ] || fail "help pages not copied"
[ -f "$unix_programs/Tessel_Uninstall.ini" ] || fail "no uninstall marker"
command=$(query 'HKCU\Software\Classes\Tessel.FolderSet\shell\open\command')
[ "$command" = "\"$programs\\tessel.exe\" \"%1\"" ] || fail "document type command is: $command"
win reg query 'HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\Tessel' /v UninstallString | grep -q -- "-uninstall" ||
  fail "no uninstall entry"
echo "installed: $programs"

# A double-click on a folder-set file runs the registered command with the file's path. Wine's
# shell reads associations from the machine's classes only (not the user's), so the command is
# run here as the shell runs it.
set_file=$TESSEL_WINE_ROOT/two.tsf
printf '[Start]\r\n' > "$set_file"
win_set_file=$(win winepath -w "$set_file" | tail -1)
opened=${command//%1/$win_set_file}
win cmd /c "start \"\" $opened" &
win "$bin/winctl.exe" wait 30000 >/dev/null || fail "the folder-set file did not open Tessel"
win "$bin/winctl.exe" close 10000 >/dev/null || fail "Tessel did not close"
echo "a folder-set file opens in the installed copy"

win "$programs\\tessel.exe" -uninstall+ /quiet
for _ in $(seq 20); do [ -e "$unix_programs" ] || break; sleep 0.5; done
[ ! -e "$unix_programs" ] || fail "program folder left: $(ls "$unix_programs")"
[ -z "$(query 'HKCU\Software\Classes\Tessel.FolderSet\shell\open\command')" ] || fail "document type left"
! win reg query 'HKCU\Software\Vendorix\Tessel' >/dev/null 2>&1 || fail "settings left"
echo "removed with its settings"
"$WINESERVER" -k 2>/dev/null || true
