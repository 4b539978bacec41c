# libpci as the target ZorEdid::libpci, or no such target where it is not installed. Both the build and the installed
# package look for it here, so that the package names no path of the machine that built it.

find_library(LIBPCI_LIBRARY pci)
mark_as_advanced(LIBPCI_LIBRARY)
if(LIBPCI_LIBRARY AND NOT TARGET ZorEdid::libpci)
  add_library(ZorEdid::libpci UNKNOWN IMPORTED GLOBAL)
  set_target_properties(ZorEdid::libpci PROPERTIES IMPORTED_LOCATION "${LIBPCI_LIBRARY}")
endif()
