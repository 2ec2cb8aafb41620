# The settings of the Debian package. Its libraries' packages are found by what the programs are linked to.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vexa)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The VEXA developers")
set(CPACK_PACKAGE_CONTACT "The VEXA developers <vexa@example.org>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://vexa.example.org/)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "decision support for wildfire incidents")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The report breaks its pages by the measures of the first font; where nothing else is installed, the windows would be
# written in its letters of one width. The help is read by a plugin, and the dictionary looked for at run time.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation, fonts-dejavu-core, libqt6sql6-sqlite")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS hunspell-en-us)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS qt6-wayland)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"VEXA Basic leads an analyst through a wildfire incident: the situation, safety
issues and objectives, alternatives and their outcomes, ratings, losses and
costs, the decision, and the signed report of it. Every figure is computed on
the way, and one fire is one file.

Beside the desktop program stands vexa-cli, which evaluates, checks, converts
and reports fires on the command line and needs no display.")

include(CPack)
