# What `cmake --install` puts where, and the package that find_package(Kelvor) finds: the targets Kelvor::Extender, for
# plug-ins, and Kelvor::Host, for applications that embed the inspector. The installed tree can be moved as a whole.

include(CMakePackageConfigHelpers)

set(KELVOR_INSTALL_CMAKEDIR ${KELVOR_INSTALL_LIBDIR}/cmake/Kelvor)

set_target_properties(kelvor PROPERTIES INSTALL_RPATH "$ORIGIN/../${KELVOR_INSTALL_LIBDIR}")
set_target_properties(qor_kelvor_extender PROPERTIES EXPORT_NAME Extender INSTALL_RPATH "$ORIGIN")
set_target_properties(kelvor_host PROPERTIES EXPORT_NAME Host INSTALL_RPATH "$ORIGIN")
set_target_properties(qor_kelvor_extender_base PROPERTIES INSTALL_RPATH "$ORIGIN/../..")

install(TARGETS kelvor RUNTIME DESTINATION ${KELVOR_INSTALL_BINDIR})
install(TARGETS qor_kelvor_extender kelvor_host EXPORT KelvorTargets
    LIBRARY DESTINATION ${KELVOR_INSTALL_LIBDIR}
    FILE_SET HEADERS DESTINATION include)
install(TARGETS qor_kelvor_extender_base LIBRARY DESTINATION ${KELVOR_INSTALL_PLUGINDIR})

# The menu entry, its icons, and what the system has to know of the files.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/share/ DESTINATION share)

install(EXPORT KelvorTargets NAMESPACE Kelvor:: DESTINATION ${KELVOR_INSTALL_CMAKEDIR})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/KelvorConfig.cmake.in
    ${PROJECT_BINARY_DIR}/cmake/KelvorConfig.cmake
    INSTALL_DESTINATION ${KELVOR_INSTALL_CMAKEDIR}
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/cmake/KelvorConfigVersion.cmake
    VERSION ${PROJECT_VERSION}
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/cmake/KelvorConfig.cmake
    ${PROJECT_BINARY_DIR}/cmake/KelvorConfigVersion.cmake
    DESTINATION ${KELVOR_INSTALL_CMAKEDIR})
