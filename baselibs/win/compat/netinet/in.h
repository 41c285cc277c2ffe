#pragma once
// AF_INET and the byte-order helpers come from Winsock here.
#include <winsock2.h>
#include <ws2tcpip.h>
