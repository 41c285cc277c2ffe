#pragma once
// The shared code's socket helpers (htonl, ntohl, inet_ntop, AF_INET) come from Winsock here.
#include <winsock2.h>
#include <ws2tcpip.h>
