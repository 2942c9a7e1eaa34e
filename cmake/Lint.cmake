# SPDX-License-Identifier: GPL-3.0-or-later

# The target "tidy": clang-tidy over src, each file again only when it, a header or
# the rules have changed.
function(quillon_add_tidy)
    find_program(CLANG_TIDY clang-tidy)
    if(NOT CLANG_TIDY)
        return()
    endif()
    # clang cannot read what gcc has precompiled, nor does it need what is for gcc alone.
    set(commands ${CMAKE_BINARY_DIR}/tidy/compile_commands.json)
    add_custom_command(OUTPUT ${commands}
        COMMAND sed -E "s/ -Winvalid-pch| -Wno-maybe-uninitialized| -fsanitize=[^ ]*| -include [^ ]*cmake_pch.hxx//g"
            ${CMAKE_BINARY_DIR}/compile_commands.json > ${commands}
        DEPENDS ${CMAKE_BINARY_DIR}/CMakeCache.txt
        VERBATIM)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.cpp)
    file(GLOB_RECURSE headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/*.h)
    foreach(source IN LISTS sources)
        file(RELATIVE_PATH name ${CMAKE_SOURCE_DIR}/src ${source})
        string(REPLACE "/" "-" name ${name})
        set(stamp ${CMAKE_BINARY_DIR}/tidy/${name}.stamp)
        add_custom_command(OUTPUT ${stamp}
            COMMAND ${CLANG_TIDY} --quiet -p ${CMAKE_BINARY_DIR}/tidy ${source}
            COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
            DEPENDS ${commands} ${source} ${headers} ${CMAKE_SOURCE_DIR}/.clang-tidy
            VERBATIM)
        list(APPEND stamps ${stamp})
    endforeach()
    add_custom_target(tidy DEPENDS ${stamps})
    add_dependencies(tidy quillon)
endfunction()
