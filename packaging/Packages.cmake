# The Debian packages, one per component of an installation. `cmake --build --preset release --target packages` leaves
# them in build/release/packages.
set(RECIPE_MAINTAINER "RecipeSheet maintainers <maintainers@recipesheet.example>" CACHE STRING
    "Who answers for the packages that are built here: name <address>")

# recipe_package(<component> <package> SECTION <section> SUMMARY <one line> DESCRIPTION <text>)
#
# Gives the component what every Debian package carries: its name, its texts, copyright and changelog. A paragraph of
# the text may be several lines; a line with a full stop alone parts two.
function(recipe_package component package)
    cmake_parse_arguments(ARG "" "SECTION;SUMMARY;DESCRIPTION" "" ${ARGN})
    set(documents "${CMAKE_INSTALL_DATADIR}/doc/${package}")
    install(FILES copyright DESTINATION "${documents}" COMPONENT ${component})
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/changelog.gz" DESTINATION "${documents}" COMPONENT ${component})
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${package} PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${ARG_SECTION} PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${ARG_SUMMARY}\n${ARG_DESCRIPTION}" PARENT_SCOPE)
    set(packaged ${packaged} ${component} PARENT_SCOPE)
endfunction()

add_custom_command(OUTPUT changelog.gz
    COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/debian-changelog" "${PROJECT_SOURCE_DIR}/CHANGELOG.md" recipe-sheet
        "${RECIPE_MAINTAINER}" > changelog
    COMMAND "${GZIP}" -9nf changelog
    DEPENDS debian-changelog "${PROJECT_SOURCE_DIR}/CHANGELOG.md" VERBATIM)
list(APPEND installed_files "${CMAKE_CURRENT_BINARY_DIR}/changelog.gz")

set(packaged) # components

recipe_package(plugin recipe-sheet-plugin SECTION electronics
    SUMMARY "recipe table for touch-panel operator interfaces"
    DESCRIPTION "A plug-in library that gives the runtime of an operator panel one item type, a
table of recipes: rows are registers of a controller, columns are recipes.
Operators see and edit the values with a finger, add and delete recipes and
save them to an SQLite file.
.
The library finds what it needs of the runtime in the process that loads it.")
set(CPACK_DEBIAN_PLUGIN_PACKAGE_SUGGESTS "recipe-panel, recipe-file")

if(headers_are_ours)
    recipe_package(dev recipe-sheet-dev SECTION libdevel
        SUMMARY "headers to build plug-in items for operator panels"
        DESCRIPTION "What an item for an operator panel is compiled against: the runtime's headers,
and the records in which the recipe sheet hands over a range of recipes, with a
CMake package (RecipeSheet) and pkg-config files (hmi-runtime, recipe-sheet).
.
A whole item to start from lies among the examples, and recipe-panel runs it.")
    set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "recipe-sheet-plugin (= ${PROJECT_VERSION}), qtbase5-dev")
    if(QT_MAJOR EQUAL 6)
        set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS "recipe-sheet-plugin (= ${PROJECT_VERSION}), qt6-base-dev")
    endif()
    set(CPACK_DEBIAN_DEV_PACKAGE_SHLIBDEPS OFF)
    set(CPACK_DEBIAN_DEV_PACKAGE_SUGGESTS "recipe-panel, cmake, pkg-config")
endif()

if(TARGET recipe-file)
    recipe_package(tool recipe-file SECTION utils
        SUMMARY "prepare, check and repair recipe files on a desk"
        DESCRIPTION "Creates the recipe files of operator panels, looks into them, takes them to a
spreadsheet and back, compares, changes, checks and repairs them. A command
that changes a file does it whole or not at all, behind a verified copy.
.
It needs no panel and no display.")
endif()

if(TARGET recipe-panel)
    recipe_package(panel recipe-panel SECTION electronics
        SUMMARY "operator panel on the desk, to run and test plug-in items"
        DESCRIPTION "Loads plug-in libraries the way an operator panel does, opens a project and
plays the panel's runtime towards its items: registers, on-screen keyboard,
notices. It can be scripted, and draws pictures without a display.
.
recipe-panel-demo opens it with a recipe sheet and a recipe file to try.")
    set(CPACK_DEBIAN_PANEL_PACKAGE_DEPENDS
        "recipe-sheet-plugin (= ${PROJECT_VERSION}), recipe-file (= ${PROJECT_VERSION}), fonts-dejavu-core, mount")
    set(CPACK_DEBIAN_PANEL_PACKAGE_SUGGESTS "recipe-sheet-dev")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME recipe-sheet)
set(CPACK_PACKAGE_VENDOR "RecipeSheet")
set(CPACK_COMPONENTS_ALL ${packaged})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_OUTPUT_FILE_PREFIX "${PROJECT_BINARY_DIR}/packages")
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS # whatever the umask is
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE recipe-sheet)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${RECIPE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}") # the runtime's stand-in
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)

# Of everything that is installed, whatever else there is to build.
set(installed_targets RecipeSheet installed-files)
foreach(target recipe_dev_records recipe-panel recipe-file)
    if(TARGET ${target})
        list(APPEND installed_targets ${target})
    endif()
endforeach()
add_custom_target(packages
    COMMAND "${CMAKE_COMMAND}" -E rm -rf "${CPACK_OUTPUT_FILE_PREFIX}"
    COMMAND "${CMAKE_CPACK_COMMAND}" --config "${PROJECT_BINARY_DIR}/CPackConfig.cmake"
    WORKING_DIRECTORY "${PROJECT_BINARY_DIR}" COMMENT "Building the Debian packages" VERBATIM)
add_dependencies(packages ${installed_targets})
