# The Debian package: cmake --build --preset release --target package
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantelore-terminal)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Vantelore terminal <terminal@vantelore.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Certificate approval of the Vantelore terminal")
set(CPACK_PACKAGE_DESCRIPTION
    "The dialog that asks a person about a server's certificate, the services that it needs, tools to
ask and to look into a running terminal, and a session of systemd that is nothing but the terminal.")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
# /etc is not below /usr: what is installed goes through DESTDIR and keeps its places.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What no linker knows of: plugins, documents, fonts and programs.
set(CPACK_DEBIAN_PACKAGE_DEPENDS
    "qt6-wayland, libqt6svg6, \
qml6-module-qtquick, qml6-module-qtquick-window, qml6-module-qtqml-workerscript, \
qml6-module-qtquick-controls, qml6-module-qtquick-templates, qml6-module-qtquick-layouts, \
fonts-paratype, fontconfig, xkb-data, sway, systemd")
# The session of a user is systemd's business, the screen is given out by one of these.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libpam-systemd | seatd")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/conffiles)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)
