#!/bin/sh
# Draws korvel.ico, the engine window's icon in four sizes: the test card's circle and three bars.
# Needs imagemagick.
set -eu
cd "$(dirname "$0")"
convert -size 256x256 xc:none \
  -fill '#28333d' -draw 'roundrectangle 8,8 247,247 40,40' \
  -fill '#2f3d49' -stroke '#8fa3b3' -strokewidth 12 -draw 'circle 128,128 128,36' -stroke none \
  -fill '#a9a25e' -draw 'rectangle 72,92 108,164' \
  -fill '#6f9d9b' -draw 'rectangle 110,92 146,164' \
  -fill '#9a5f5a' -draw 'rectangle 148,92 184,164' \
  -define icon:auto-resize=48,32,24,16 korvel.ico
