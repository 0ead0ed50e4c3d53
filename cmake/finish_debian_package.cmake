# SPDX-License-Identifier: GPL-3.0-or-later
# Runs in cpack, before the package is closed.

set(prefix ${CPACK_TEMPORARY_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX})

# Debian requires who built the package and when (SOURCE_DATE_EPOCH counts).
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(changelog ${prefix}/share/doc/${CPACK_PACKAGE_NAME}/changelog.Debian)
file(WRITE ${changelog}
"${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * Package of version ${CPACK_PACKAGE_VERSION}. What is new stands in changelog.gz.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
execute_process(COMMAND gzip -9nf ${changelog} COMMAND_ERROR_IS_FATAL ANY)
file(CHMOD ${changelog}.gz PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

# Lets everybody enter the folders, whatever the umask of whoever built the package.
file(CHMOD_RECURSE ${prefix}
     DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
