# SPDX-License-Identifier: GPL-3.0-or-later

# What every target of the project is compiled with.
add_library(quillon_options INTERFACE)
target_compile_definitions(quillon_options INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_KEYWORDS
    QT_NO_FOREACH
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
# -pthread everywhere: a precompiled header wants the macros that it was made with.
target_compile_options(quillon_options INTERFACE -pthread -Wall -Wextra -Wpedantic
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:QUILLON_IS_COMPILED_QML>>>:-Wconversion;-Wsign-conversion>)
if(QUILLON_WARNINGS_ARE_ERRORS)
    target_compile_options(quillon_options INTERFACE -Werror)
endif()
if(QUILLON_SANITIZERS)
    # Not the C++ that Qt makes of QML, which is a fifth of all that is compiled.
    target_compile_options(quillon_options INTERFACE
        $<$<NOT:$<BOOL:$<TARGET_PROPERTY:QUILLON_IS_COMPILED_QML>>>:-fsanitize=${QUILLON_SANITIZERS}>
        -fno-omit-frame-pointer
        # Instrumented code makes the compiler see uninitialized optionals that are none.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(quillon_options INTERFACE -fsanitize=${QUILLON_SANITIZERS})
endif()

# What nearly every file includes, read once. Nothing beyond Qt Core, so that an include
# that a folder may not have is missing all the same.
file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/precompiled.cpp CONTENT "// Empty.\n")
add_library(quillon_precompiled STATIC ${CMAKE_BINARY_DIR}/precompiled.cpp)
target_link_libraries(quillon_precompiled PRIVATE Qt6::Core quillon_options)
target_precompile_headers(quillon_precompiled PRIVATE
    <QDateTime> <QHash> <QJsonObject> <QList> <QMap> <QObject> <QRegularExpression> <QSet>
    <QString> <QStringList> <QTimer> <QUrl> <QVariant>
    <chrono> <functional> <memory> <mutex> <optional> <variant>)

# quillon_library(NAME FOLDER PUBLIC lib... PRIVATE lib... SOURCES file...)
# A static library whose include path is its own folder alone, so that an include
# that its dependencies do not allow does not compile.
function(quillon_library name folder)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "PUBLIC;PRIVATE;SOURCES")
    qt_add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC ${folder})
    target_link_libraries(${name} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE} quillon_options)
    target_precompile_headers(${name} REUSE_FROM quillon_precompiled)
    qt_extract_metatypes(${name})
endfunction()
