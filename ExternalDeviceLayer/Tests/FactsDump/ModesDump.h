// What zor_facts_dump prints of modes.

#pragma once

// Tab-separated lines in the conventions of video modes of kernels: repeated pixels count once, lines of interlaced
// modes are those of the frame.
//   mode NAME FIELD OFFSET CLOCK_KHZ HDISPLAY HSYNC_START HSYNC_END HTOTAL VDISPLAY VSYNC_START VSYNC_END VTOTAL FLAGS
//        PREFERENCE ASPECT NUMBERS VIC
void PrintModes(const char* pszPath, unsigned int uiSize, const unsigned char* pui8Data);
