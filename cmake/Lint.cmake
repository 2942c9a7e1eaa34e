# SPDX-License-Identifier: GPL-3.0-or-later

# The target "tidy": clang-tidy over src, each file again only when it, a header or
# the rules have changed.
function(quillon_add_tidy)
    find_program(CLANG_TIDY clang-tidy)
    if(NOT CLANG_TIDY)
        return()
    endif()
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.cpp)
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.h)
    foreach(source IN LISTS sources)
        file(RELATIVE_PATH name ${CMAKE_SOURCE_DIR}/src ${source})
        string(REPLACE "/" "-" name ${name})
        set(stamp ${CMAKE_BINARY_DIR}/tidy/${name}.stamp)
        add_custom_command(OUTPUT ${stamp}
            COMMAND ${CLANG_TIDY} --quiet -p ${CMAKE_BINARY_DIR} ${source}
            COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
            DEPENDS ${source} ${headers} ${CMAKE_SOURCE_DIR}/.clang-tidy
            VERBATIM)
        list(APPEND stamps ${stamp})
    endforeach()
    add_custom_target(tidy DEPENDS ${stamps})
    add_dependencies(tidy quillon)
endfunction()
