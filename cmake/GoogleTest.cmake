# Debian ships GoogleTest's sources, so the same version is built with every compiler: native, sanitized, for Windows.
set(GTEST_SOURCES /usr/src/googletest CACHE PATH "GoogleTest's sources")
set(gtest_force_shared_crt ON CACHE BOOL "" FORCE)
set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
add_subdirectory(${GTEST_SOURCES} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
