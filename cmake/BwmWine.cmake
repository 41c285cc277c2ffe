# Tests of the Windows build run under Wine, in a prefix of this build folder
# that the fixture in tests/win makes afresh on every run.
set(BWM_WINE_LOADER /usr/lib/wine/wine64 CACHE FILEPATH "Wine's 64-bit loader")
set(BWM_WINE_SERVER /usr/lib/wine/wineserver CACHE FILEPATH "Wine's server")
set(BWM_WINEPREFIX ${CMAKE_BINARY_DIR}/wine-prefix)
# No Mono or Gecko: nothing here needs them, and asking for them costs the prefix's first start.
set(BWM_WINE_ENV WINEPREFIX=${BWM_WINEPREFIX} WINEDEBUG=-all WINEDLLOVERRIDES=mscoree,mshtml=)
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/bin/env ${BWM_WINE_ENV} ${BWM_WINE_LOADER})
