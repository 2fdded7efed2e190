# Where everything goes on `cmake --install`: as a Linux distribution would lay it.

include(CMakePackageConfigHelpers)

set(QEN_INSTALL_INCLUDE_DIR "${CMAKE_INSTALL_INCLUDEDIR}/QENPreVariables")
set(QEN_INSTALL_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/QENPreVariables")
set(QEN_INSTALL_DEFINITIONS_DIR "${CMAKE_INSTALL_DATADIR}/QENPreVariables/definitions")

# The library and the declarations of its host.
install(TARGETS QENHost QENPreVariables
    EXPORT QENPreVariablesTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    FILE_SET HEADERS DESTINATION "${QEN_INSTALL_INCLUDE_DIR}")
install(EXPORT QENPreVariablesTargets NAMESPACE QEN:: DESTINATION "${QEN_INSTALL_PACKAGE_DIR}")

configure_package_config_file(cmake/QENPreVariablesConfig.cmake.in
    "${PROJECT_BINARY_DIR}/QENPreVariablesConfig.cmake"
    INSTALL_DESTINATION "${QEN_INSTALL_PACKAGE_DIR}"
    PATH_VARS QEN_INSTALL_DEFINITIONS_DIR)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/QENPreVariablesConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/QENPreVariablesConfig.cmake"
    "${PROJECT_BINARY_DIR}/QENPreVariablesConfigVersion.cmake"
    DESTINATION "${QEN_INSTALL_PACKAGE_DIR}")

file(RELATIVE_PATH QEN_PC_TO_PREFIX
    "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file(cmake/QENPreVariables.pc.in "${PROJECT_BINARY_DIR}/QENPreVariables.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/QENPreVariables.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")

# What is data and what is to be read.
install(DIRECTORY definitions/ DESTINATION "${QEN_INSTALL_DEFINITIONS_DIR}" FILES_MATCHING PATTERN "*.qcl")
install(DIRECTORY examples DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(FILES README.md CHANGELOG.md DESTINATION "${CMAKE_INSTALL_DOCDIR}")

# The standalone host and the command. Both find their libraries beside them, wherever the prefix is moved to.
if(QEN_BUILD_STANDALONE)
    file(RELATIVE_PATH binToLib "/${CMAKE_INSTALL_FULL_BINDIR}" "/${CMAKE_INSTALL_FULL_LIBDIR}")
    set_target_properties(QENStandaloneHost PROPERTIES INSTALL_RPATH "$ORIGIN")
    install(TARGETS QENStandaloneHost
        EXPORT QENPreVariablesStandaloneTargets
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
        INCLUDES DESTINATION "${QEN_INSTALL_INCLUDE_DIR}/standalone")
    install(EXPORT QENPreVariablesStandaloneTargets NAMESPACE QEN:: DESTINATION "${QEN_INSTALL_PACKAGE_DIR}")
    install(DIRECTORY standalone/ DESTINATION "${QEN_INSTALL_INCLUDE_DIR}/standalone"
        FILES_MATCHING PATTERN "*.h" PATTERN qencheck EXCLUDE)

    if(TARGET qencheck)
        set_target_properties(qencheck PROPERTIES INSTALL_RPATH "$ORIGIN/${binToLib}")
        install(TARGETS qencheck RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
    endif()
endif()
