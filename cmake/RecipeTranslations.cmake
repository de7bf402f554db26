# Texts in the languages of operators: Qt Linguist sources (translations/*.ts) and what the build makes of them
# (*.qm in the build tree's translations folder, beside the folders of the programs).
find_package(Qt${QT_MAJOR} ${QT_LEAST} REQUIRED COMPONENTS LinguistTools)

set(RECIPE_LANGUAGES de fr es it ru zh_CN ja)

# recipe_translations(<target> FAMILY <name> SOURCES <folder>)
#
# Compiles <name>_<language>.ts of the current folder for every language, as part of `all`. The target
# <target>-update takes new texts of the folder of sources into the .ts files and drops those that are gone.
function(recipe_translations target)
    cmake_parse_arguments(ARG "" "FAMILY;SOURCES" "" ${ARGN})
    set(ts)
    foreach(language ${RECIPE_LANGUAGES})
        list(APPEND ts "${CMAKE_CURRENT_SOURCE_DIR}/${ARG_FAMILY}_${language}.ts")
    endforeach()
    set_source_files_properties(${ts} PROPERTIES OUTPUT_LOCATION "${PROJECT_BINARY_DIR}/translations")
    cmake_language(CALL "qt${QT_MAJOR}_add_translation" compiled ${ts} OPTIONS -silent)
    add_custom_target(${target} ALL DEPENDS ${compiled})
    add_custom_target(${target}-update
        COMMAND Qt${QT_MAJOR}::lupdate -locations none -no-obsolete "${ARG_SOURCES}" -ts ${ts}
        COMMENT "Taking the texts of ${ARG_SOURCES} over"
        VERBATIM)
endfunction()
