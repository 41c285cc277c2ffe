#!/bin/sh
# stop-wine-server.sh SERVER: ends the server of this run's WINEPREFIX, if it still runs.
"$1" -k 2>/dev/null
exit 0
