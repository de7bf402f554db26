# The component `dev`: headers, the records as a small static library (a record's functions are not exported by the
# plug-in), a CMake package and two pkg-config files.
set(runtime_headers_dir "${CMAKE_INSTALL_INCLUDEDIR}/hmi-runtime")
set(records_headers_dir "${CMAKE_INSTALL_INCLUDEDIR}/recipe-sheet")

add_library(recipe_dev_runtime INTERFACE)
set_target_properties(recipe_dev_runtime PROPERTIES EXPORT_NAME Runtime)
target_include_directories(recipe_dev_runtime INTERFACE "$<INSTALL_INTERFACE:${runtime_headers_dir}>")
target_link_libraries(recipe_dev_runtime INTERFACE Qt${QT_MAJOR}::Widgets)
target_compile_features(recipe_dev_runtime INTERFACE cxx_std_11)

set(records_dir "${PROJECT_SOURCE_DIR}/extend_model/recipe_extend")
add_library(recipe_dev_records STATIC "${records_dir}/recipe_records.cpp")
recipe_target(recipe_dev_records 11)
set_target_properties(recipe_dev_records PROPERTIES EXPORT_NAME Records OUTPUT_NAME recipe_records
    ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
target_include_directories(recipe_dev_records PUBLIC "$<BUILD_INTERFACE:${records_dir}>"
    "$<INSTALL_INTERFACE:${records_headers_dir}>")
target_link_libraries(recipe_dev_records PUBLIC Qt${QT_MAJOR}::Core)
target_compile_features(recipe_dev_records PUBLIC cxx_std_11)

install(DIRECTORY "${own_headers}/" DESTINATION "${runtime_headers_dir}" COMPONENT dev FILES_MATCHING PATTERN "*.h")
install(FILES "${records_dir}/recipe_records.h" "${records_dir}/recipe_tools.h" "${records_dir}/recipe_export.h"
    DESTINATION "${records_headers_dir}" COMPONENT dev)
install(TARGETS recipe_dev_runtime recipe_dev_records EXPORT RecipeSheetTargets
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT dev)

include(CMakePackageConfigHelpers)
set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/RecipeSheet")
install(EXPORT RecipeSheetTargets NAMESPACE RecipeSheet:: DESTINATION "${package_dir}" COMPONENT dev)
configure_package_config_file(RecipeSheetConfig.cmake.in RecipeSheetConfig.cmake
    INSTALL_DESTINATION "${package_dir}" PATH_VARS RECIPE_PLUGIN_INSTALL_DIR)
write_basic_package_version_file(RecipeSheetConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/RecipeSheetConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/RecipeSheetConfigVersion.cmake"
    DESTINATION "${package_dir}" COMPONENT dev)

# A pkg-config file finds the prefix from its own place, as the CMake package does.
file(RELATIVE_PATH prefix_from_pkgconfig "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
string(REGEX REPLACE "/$" "" prefix_from_pkgconfig "${prefix_from_pkgconfig}")
cmake_path(APPEND plugindir "\${prefix}" "${RECIPE_PLUGIN_INSTALL_DIR}") # an absolute one replaces the prefix
foreach(package hmi-runtime recipe-sheet)
    configure_file(${package}.pc.in ${package}.pc @ONLY)
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${package}.pc"
        DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT dev)
endforeach()

# A whole item to start from.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples/register-lamp"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/recipe-sheet-dev/examples" COMPONENT dev)
