#!/bin/sh
# Draws Tessel's icon: four tiles, one per T-View, on a rounded plate; each size is drawn on its
# own pixel grid so the small sizes stay crisp. Usage: make_icon.sh out.ico
set -e
out=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
draw() {  # size plate-radius gap
  s=$1; r=$2; g=$3
  m=$((s / 16)); [ "$m" -lt 1 ] && m=1
  a=$((m + g)); h=$(( (s - 2 * a - g) / 2 )); b=$((a + h + g))
  convert -size "${s}x${s}" xc:none \
    -fill '#1F3A5F' -draw "roundrectangle 0,0 $((s - 1)),$((s - 1)) $r,$r" \
    -fill '#4FA3E0' -draw "rectangle $a,$a $((a + h - 1)),$((a + h - 1))" \
    -fill '#8CCBF2' -draw "rectangle $b,$a $((b + h - 1)),$((a + h - 1))" \
    -fill '#8CCBF2' -draw "rectangle $a,$b $((a + h - 1)),$((b + h - 1))" \
    -fill '#F2B134' -draw "rectangle $b,$b $((b + h - 1)),$((b + h - 1))" \
    "PNG32:$work/$s.png"
}
draw 16 2 1
draw 24 3 1
draw 32 4 2
draw 48 6 3
draw 64 8 4
draw 256 32 14
convert "$work/16.png" "$work/24.png" "$work/32.png" "$work/48.png" "$work/64.png" "$work/256.png" "$out"
