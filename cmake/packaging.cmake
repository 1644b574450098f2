# What `cmake --install` gives: headers, libraries and a CMake package, programs with their files, documents.
#
# Another project says find_package(wi) and links wi::dovsys, wi::wi, ... The target `package` makes the ZIP for a
# Windows user: programs, their files and the documents, without headers and libraries.

include(CMakePackageConfigHelpers)

set(wi_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/wi)
install(EXPORT wi NAMESPACE wi:: FILE wi-config.cmake DESTINATION ${wi_cmake_dir} COMPONENT libraries)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/wi-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/wi-config-version.cmake DESTINATION ${wi_cmake_dir} COMPONENT libraries)

install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documents)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documents PATTERN make-pictures EXCLUDE)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_PACKAGE_FILE_NAME ${PROJECT_NAME}-${PROJECT_VERSION}-windows-x86_64)
  set(CPACK_VERBATIM_VARIABLES ON)
  set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
  set(CPACK_COMPONENTS_ALL programs documents)
  set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
  set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY ON)
  include(CPack)
endif()
