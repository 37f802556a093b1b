# `cpack -G DEB` in the build folder (or `scripts/setup.sh package`) makes
# kestrovane_<version>_<arch>.deb from the install rules. Its dependencies are
# the Debian packages of the shared libraries the program links (found by
# dpkg-shlibdeps), plus Qt's platform plugins, which the Qt libraries only
# recommend and without which no window opens. The desktop's menu, MIME and
# icon caches are brought up to date by their own packages' triggers.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kestrovane)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Kestrovane developers <kestrovane@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "reservations for small hotels and guest houses")
string(JOIN "\n" CPACK_PACKAGE_DESCRIPTION
  "Kestrovane shows a planning board, one row per room and one column per day,"
  "with each booking a coloured label. It keeps customers, agents and a black"
  "list, issues invoices and reports financial and occupancy results. All the"
  "data of an establishment lives in one planning file (.ksv, SQLite), shared"
  "between workstations. It speaks English and French.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
# Opening a mail address goes through the desktop's URL handler.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
