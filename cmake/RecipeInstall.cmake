# Where an installation puts things, below its prefix. The programs find the rest from where they themselves lie, so an
# installed tree may be moved as a whole.
if(EXISTS "/etc/debian_version" AND CMAKE_LIBRARY_ARCHITECTURE AND NOT CMAKE_CROSSCOMPILING)
    # Where Debian's packages have their libraries, whatever the prefix is at configuration.
    set(CMAKE_INSTALL_LIBDIR "lib/${CMAKE_LIBRARY_ARCHITECTURE}" CACHE PATH "Libraries, below the prefix")
endif()
include(GNUInstallDirs)

set(RECIPE_PLUGIN_INSTALL_DIR "${CMAKE_INSTALL_LIBDIR}/recipe-sheet" CACHE STRING
    "Where the plug-in is installed: the folder in which the runtime looks for plug-ins, below the prefix or absolute")
set(RECIPE_DATA_INSTALL_DIR "${CMAKE_INSTALL_DATADIR}/recipe-sheet")

# recipe_from_programs(<variable> <folder>): the folder as seen from the folder of the programs; an absolute one as it is.
function(recipe_from_programs variable folder)
    if(NOT IS_ABSOLUTE "${folder}")
        file(RELATIVE_PATH folder "/prefix/${CMAKE_INSTALL_BINDIR}" "/prefix/${folder}")
    endif()
    set(${variable} "${folder}" PARENT_SCOPE)
endfunction()
