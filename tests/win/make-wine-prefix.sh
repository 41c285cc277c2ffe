#!/bin/sh
# make-wine-prefix.sh LOADER: a fresh WINEPREFIX (from the environment), booted once.
set -eu
rm -rf "$WINEPREFIX"
"$1" wineboot -i
