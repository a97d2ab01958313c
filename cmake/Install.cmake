# What is installed: the library with its public headers and its CMake package, the command line with its
# manual pages, the documents.
include(CMakePackageConfigHelpers)

set(FX_ALGEN_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/FX_Algen)
get_target_property(FX_ALGEN_LIBRARY_TYPE FX_Algen TYPE)
if(FX_ALGEN_LIBRARY_TYPE STREQUAL "SHARED_LIBRARY")
    set(FX_ALGEN_IS_SHARED TRUE)
else()
    set(FX_ALGEN_IS_SHARED FALSE)
endif()

set_target_properties(FX_Algen PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
target_compile_features(FX_Algen PUBLIC cxx_std_20)
# The installed program finds a shared library beside it, wherever the prefix stands.
file(RELATIVE_PATH FX_ALGEN_LIB_FROM_BIN /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
set_target_properties(fxalgen PROPERTIES INSTALL_RPATH "$ORIGIN/${FX_ALGEN_LIB_FROM_BIN}")

install(TARGETS FX_Algen EXPORT FX_AlgenTargets)
install(TARGETS fxalgen RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/FX_Algen DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    FILES_MATCHING PATTERN "*.h" PATTERN "ui" EXCLUDE)
install(EXPORT FX_AlgenTargets NAMESPACE FX_Algen:: DESTINATION ${FX_ALGEN_PACKAGE_DIR})

# An export of its own, which the package reads only for whoever asks for the component.
if(FX_ALGEN_UI)
    # Where they are shared, the libraries stand side by side.
    set_target_properties(FX_Algen_ui PROPERTIES VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR} INSTALL_RPATH "$ORIGIN")
    target_compile_features(FX_Algen_ui PUBLIC cxx_std_20)
    install(TARGETS FX_Algen_ui EXPORT FX_AlgenUiTargets)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/FX_Algen/ui DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/FX_Algen
        FILES_MATCHING PATTERN "*.h")
    install(EXPORT FX_AlgenUiTargets NAMESPACE FX_Algen:: DESTINATION ${FX_ALGEN_PACKAGE_DIR})
endif()

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/FX_AlgenConfig.cmake.in
    ${PROJECT_BINARY_DIR}/FX_AlgenConfig.cmake INSTALL_DESTINATION ${FX_ALGEN_PACKAGE_DIR})
# Results may change with a minor version, so a consumer that asks for 0.1 does not get 0.2.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/FX_AlgenConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/FX_AlgenConfig.cmake ${PROJECT_BINARY_DIR}/FX_AlgenConfigVersion.cmake
    DESTINATION ${FX_ALGEN_PACKAGE_DIR})

file(GLOB manual_pages CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/man/*.1)
if(manual_pages)
    install(FILES ${manual_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}
    FILES_MATCHING PATTERN "*.md" PATTERN "*.csv" PATTERN "*.png")
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/LICENSE
    DESTINATION ${CMAKE_INSTALL_DOCDIR})
