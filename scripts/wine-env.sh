# Sourced by the scripts that run Windows programs: a Wine prefix, HOME and XDG folders inside the
# build folder, so nothing is written into the user's home. Creates the prefix on first use.
tessel_root=$(cd "$(dirname "${BASH_SOURCE[0]:-$0}")/.." && pwd)
wine_root=${TESSEL_WINE_ROOT:-$tessel_root/build/wine}
export WINEPREFIX="$wine_root/prefix"
export HOME="$wine_root/home"
export XDG_CONFIG_HOME="$HOME/.config" XDG_DATA_HOME="$HOME/.local/share" XDG_CACHE_HOME="$HOME/.cache"
export WINEDEBUG=-all
# No menu entries in the host desktop, no downloads of mono or gecko, no host browser.
export WINEDLLOVERRIDES="winemenubuilder.exe=d;mscoree=;mshtml=;winebrowser.exe=d"
export WINEARCH=win64
WINE=/usr/lib/wine/wine64
WINESERVER=/usr/lib/wine/wineserver

tessel_wine_prefix() {
  mkdir -p "$HOME" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME" "$XDG_CACHE_HOME"
  (
    flock 9
    if [ ! -f "$WINEPREFIX/.tessel-ready" ]; then
      "$WINE" wineboot -i >/dev/null 2>&1
      # Every program opens inside one virtual desktop: under bare Xvfb each hide waits 2 s.
      "$WINE" reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >/dev/null 2>&1
      "$WINE" reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1280x800 /f >/dev/null 2>&1
      "$WINESERVER" -w
      touch "$WINEPREFIX/.tessel-ready"
    fi
    # Drive Z: is the host's "/", whose device Wine may not read: every drive label it is asked
    # for (the Computer folder lists Z: with its label) then prints "Read access denied for
    # device ... FS volume label and serial are not available". A readable stand-in device
    # with no file system gives the same answer (no label) without the line.
    if [ ! -e "$WINEPREFIX/dosdevices/z::" ]; then
      head -c 8192 /dev/zero > "$wine_root/z-device"
      ln -sfn "$wine_root/z-device" "$WINEPREFIX/dosdevices/z::"
    fi
  ) 9>"$wine_root.lock"
}
mkdir -p "$wine_root"
tessel_wine_prefix

# Starts the wineserver, Wine's services and the virtual desktop ahead of a run, detached from
# the caller's output: processes that Wine starts on first use would otherwise inherit the pipes
# of whoever started them (ctest waits for those pipes to close).
tessel_wine_warm() {
  "$WINESERVER" -p 60 </dev/null >/dev/null 2>&1
  "$WINE" explorer /desktop=Default,1280x800 </dev/null >/dev/null 2>&1 &
  "$WINE" cmd /c exit </dev/null >/dev/null 2>&1 || true
}
