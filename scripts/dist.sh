#!/usr/bin/env bash
# The release zip: tessel.exe, the help pages, a README for Windows users and the licence, and a
# SHA-256 checksum file beside the zip.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
version=$(sed -n 's/.*VALUE "ProductVersion", "\(.*\)".*/\1/p' "$here/res/tessel.rc")
name=tessel-$version
out=$here/build/dist
rm -rf "${out:?}/$name" "$out/$name.zip" "$out/$name.zip.sha256"
mkdir -p "$out/$name/help"
cp "$here/build/win64/bin/tessel.exe" "$out/$name/"
cp "$here"/docs/help/* "$out/$name/help/"
sed 's/$/\r/' "$here/docs/README-Windows.txt" > "$out/$name/README.txt"
sed 's/$/\r/' "$here/LICENSE" > "$out/$name/LICENSE.txt"
# A portable set-up: the settings file beside the program (UTF-16LE with its mark, as Tessel
# writes it) names the favorites and quick-link folders beside it.
mkdir -p "$out/$name/Favoriten/Quick-Link"
{ printf '\xff\xfe'; printf '[Favoriten]\r\nOrdner=.\\Favoriten\\\r\n[T]\r\nLink=.\\Favoriten\\Quick-Link\r\n' |
  iconv -f UTF-8 -t UTF-16LE; } > "$out/$name/Tessel.ini"
(cd "$out" && cmake -E tar cf "$name.zip" --format=zip "$name" && sha256sum "$name.zip" > "$name.zip.sha256")
echo "Release: $out/$name.zip ($(du -k "$out/$name.zip" | cut -f1) KB)"
echo "Checksum: $(cut -d' ' -f1 "$out/$name.zip.sha256")"
