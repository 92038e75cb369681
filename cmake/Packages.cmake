# The Debian packages quorvel and quorvel-bridge, one for each install component. scripts/package makes them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "Quorvel developers <developers@quorvel.example>")
set(CPACK_PACKAGE_VENDOR "Quorvel developers")
set(CPACK_PACKAGE_HOMEPAGE_URL ${QUORVEL_WEBSITE_URL})
set(CPACK_COMPONENTS_ALL client bridge)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
# Whatever the umask of the person who packs.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# Each package says for itself what it is.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_CLIENT_PACKAGE_NAME quorvel)
set(CPACK_DEBIAN_CLIENT_PACKAGE_SECTION net)
# What no library names: trusted certificates, and the rules of New York's time.
set(CPACK_DEBIAN_CLIENT_PACKAGE_DEPENDS "ca-certificates, tzdata")
# The typeface, the theme that icons belong to, the session bus for a single instance and the tray, the desktop's own
# file chooser and colour scheme, a browser for documents, and Wayland.
set(CPACK_DEBIAN_CLIENT_PACKAGE_RECOMMENDS
    "fonts-inter, hicolor-icon-theme, default-dbus-session-bus | dbus-session-bus, xdg-desktop-portal, xdg-utils, qt6-wayland")
set(CPACK_DEBIAN_CLIENT_PACKAGE_SUGGESTS quorvel-bridge)
set(CPACK_DEBIAN_CLIENT_DESCRIPTION "desktop client for remote online notarization
Quorvel is the desktop workspace of a remote online notarization service.
Clients book remote notary sessions and attach their documents, businesses
schedule sessions for their own clients, notaries work through their
sessions, and office staff oversee all of it.
.
This build speaks to the service at ${QUORVEL_WEBSITE_URL}.")

set(CPACK_DEBIAN_BRIDGE_PACKAGE_NAME quorvel-bridge)
set(CPACK_DEBIAN_BRIDGE_PACKAGE_SECTION net)
set(CPACK_DEBIAN_BRIDGE_PACKAGE_SUGGESTS quorvel)
set(CPACK_DEBIAN_BRIDGE_DESCRIPTION "local server for the Quorvel desktop client
A small complete server of the interface that the Quorvel desktop client
speaks: accounts, sessions, messages and documents over TLS, kept in a
single folder. It serves one machine, for trying, demonstrating and
developing; it can fill itself with demonstration data.")

include(CPack)
