#!/bin/sh
# Draws video.jpg, the test card that replaces broadcast video: 720 x 576, progressive JPEG, exactly
# 31,701 bytes. Uses the highest quality that fits and fills the rest with a comment.
# Needs imagemagick, libjpeg-turbo-progs and fonts-dejavu-core.
set -eu
cd "$(dirname "$0")"
size=31701
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

bars() { # x, y, width, height, then colours from left to right
  x=$1 y=$2 width=$3 height=$4
  shift 4
  for colour; do
    echo "fill '$colour' rectangle $x,$y $((x + width - 1)),$((y + height - 1))"
    x=$((x + width))
  done
}

grid() {
  for x in 72 144 216 288 360 432 504 576 648; do echo "line $x,0 $x,575"; done
  for y in 72 144 216 288 360 432 504; do echo "line 0,$y 719,$y"; done
}

# The colours of the two rows; each is a word of its own.
top='#b8b09a #a9a25e #6f9d9b #6d9168 #93708f #9a5f5a #56648f'
bottom='#101418 #2c3238 #4d555c #737b82 #9aa1a7 #c2c7cb #e8eaec'

convert -size 720x576 xc:'#28333d' -depth 8 \
  -stroke '#3a4854' -strokewidth 2 -draw "$(grid)" \
  -fill '#2f3d49' -stroke '#8fa3b3' -strokewidth 3 -draw 'circle 360,288 360,72' -stroke none \
  -draw "$(bars 192 168 48 60 $top)" \
  -draw "$(bars 192 360 48 36 $bottom)" \
  -font DejaVu-Sans-Bold -pointsize 66 -kerning 8 -fill '#e4ebf0' -gravity center \
  -annotate +4+6 KORVEL "ppm:$work/card.ppm"

quality=95
while
  cjpeg -quality $quality -progressive -optimize "$work/card.ppm" >"$work/card.jpg"
  fill=$((size - 4 - $(wc -c <"$work/card.jpg")))
  [ $fill -lt 0 ]
do
  quality=$((quality - 1))
done

printf '%*s' $fill '' >"$work/comment"
wrjpgcom -cfile "$work/comment" "$work/card.jpg" >video.jpg
[ "$(wc -c <video.jpg)" -eq $size ]
