// The browser app zoredid.html on this machine.

#pragma once

#include <string>

// Where it is: installed beside the program, or built with it. Empty where it is neither.
std::string FindBrowserApp();

// Hands a file to the browser of the desktop. False where there is no desktop, or nothing that opens files.
bool OpenOnDesktop(const std::string& sPath);
