# Makes the target ZorEdid::libpci where libpci is installed. Both the build and the installed package look for libpci
# here, so that the package names no path of the machine that built it.

find_library(LIBPCI_LIBRARY pci)
mark_as_advanced(LIBPCI_LIBRARY)
if(LIBPCI_LIBRARY AND NOT TARGET ZorEdid::libpci)
  add_library(ZorEdid::libpci UNKNOWN IMPORTED GLOBAL)
  set_target_properties(ZorEdid::libpci PROPERTIES IMPORTED_LOCATION "${LIBPCI_LIBRARY}")
endif()
