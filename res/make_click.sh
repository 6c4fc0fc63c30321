#!/bin/sh
# Makes the navigation click: 25 ms of a damped 2 kHz tone, 8-bit mono PCM at 22,050 Hz.
# Usage: make_click.sh out.wav
set -e
out=$1
rate=22050
count=551
le() {  # value bytes: little-endian as octal escapes
  v=$1; n=$2; s=''
  while [ "$n" -gt 0 ]; do s="$s\\$(printf '%03o' $((v % 256)))"; v=$((v / 256)); n=$((n - 1)); done
  printf "$s"
}
{
  printf 'RIFF'; le $((36 + count)) 4; printf 'WAVEfmt '
  le 16 4; le 1 2; le 1 2; le $rate 4; le $rate 4; le 1 2; le 8 2
  printf 'data'; le $count 4
  LC_ALL=C awk -v n=$count -v r=$rate 'BEGIN {
    for (i = 0; i < n; i++) {
      v = int(128 + 100 * exp(-i / 90) * sin(2 * 3.14159265 * 2000 * i / r))
      if (v < 1) v = 1; if (v > 255) v = 255
      printf "%c", v
    }
  }'
} > "$out"
