# The Debian package that scripts/package builds.
set(OSTREL_PACKAGE_VERSION ${OSTREL_VERSION}-1)
set(documents ${CMAKE_INSTALL_DATADIR}/doc/ostrel)
configure_file(debian/changelog.in debian/changelog @ONLY)
ostrel_install_compressed(${CMAKE_CURRENT_BINARY_DIR}/debian/changelog ${documents} changelog.Debian)
ostrel_install_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${documents} changelog)
configure_file(debian/copyright.in debian/copyright @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/debian/copyright DESTINATION ${documents})
install(FILES debian/lintian-overrides
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME ostrel)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ostrel)
set(CPACK_PACKAGE_VERSION ${OSTREL_VERSION})
set(CPACK_PACKAGE_VENDOR "The Ostrel authors")
set(CPACK_PACKAGE_CONTACT "The Ostrel authors <${OSTREL_SUPPORT_MAILBOX}>")
set(CPACK_PACKAGE_HOMEPAGE_URL ${OSTREL_HOMEPAGE}/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "desktop uptime monitor for web addresses and ports")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
    "Ostrel checks web addresses over HTTP(S) and ports over TCP, each on its own
interval, keeps the history, and tells when something is down: on the second
failure in a row, once, and again when it is back.
.
It needs no server and no account, and keeps its data in files of its user.")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no linker knows of: the modules that the views import, the plug-ins that draw on the
# compositor and read vector pictures and WebP, the fonts, the trusted certificates.
set(depends
    ca-certificates
    fonts-jetbrains-mono
    fonts-lato
    "libqt6svg6 (<< 6.7) | qt6-svg-plugins"
    qml6-module-qtqml
    qml6-module-qtqml-models
    qml6-module-qtqml-workerscript
    qml6-module-qtquick
    qml6-module-qtquick-templates
    qml6-module-qtquick-window
    qt6-image-formats-plugins
    qt6-wayland)
list(JOIN depends ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-desktop-portal, xdg-utils")
include(CPack)
