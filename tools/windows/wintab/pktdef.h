/* SPDX-License-Identifier: GPL-3.0-or-later */
/* The Wintab packet record for the fields the includer names in PACKETDATA (and, relative, in
 * PACKETMODE), in the order the tablet driver writes them. */
#ifndef PACKETDATA
#error "define PACKETDATA before including pktdef.h"
#endif
#ifndef PACKETMODE
#define PACKETMODE 0
#endif

typedef struct tagPACKET {
#if PACKETDATA & PK_CONTEXT
    HCTX pkContext;
#endif
#if PACKETDATA & PK_STATUS
    UINT pkStatus;
#endif
#if PACKETDATA & PK_TIME
    DWORD pkTime;
#endif
#if PACKETDATA & PK_CHANGED
    WTPKT pkChanged;
#endif
#if PACKETDATA & PK_SERIAL_NUMBER
    UINT pkSerialNumber;
#endif
#if PACKETDATA & PK_CURSOR
    UINT pkCursor;
#endif
#if PACKETDATA & PK_BUTTONS
    DWORD pkButtons;
#endif
#if PACKETDATA & PK_X
    LONG pkX;
#endif
#if PACKETDATA & PK_Y
    LONG pkY;
#endif
#if PACKETDATA & PK_Z
    LONG pkZ;
#endif
#if PACKETDATA & PK_NORMAL_PRESSURE
#if PACKETMODE & PK_NORMAL_PRESSURE
    int pkNormalPressure;
#else
    UINT pkNormalPressure;
#endif
#endif
#if PACKETDATA & PK_TANGENT_PRESSURE
#if PACKETMODE & PK_TANGENT_PRESSURE
    int pkTangentPressure;
#else
    UINT pkTangentPressure;
#endif
#endif
#if PACKETDATA & PK_ORIENTATION
    ORIENTATION pkOrientation;
#endif
#if PACKETDATA & PK_ROTATION
    ROTATION pkRotation;
#endif
} PACKET, *PPACKET, *NPPACKET, *LPPACKET;
