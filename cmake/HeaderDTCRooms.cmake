# Compiler settings shared by every target, and the two functions with which the
# rooms under src/ and their tests are declared.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE RelWithDebInfo CACHE STRING "Build type" FORCE)
endif()

# A compiler cache, where there is one, makes a second build from nothing quick.
find_program(HEADERDTC_CCACHE ccache)
mark_as_advanced(HEADERDTC_CCACHE)
if(HEADERDTC_CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${HEADERDTC_CCACHE}")
endif()

add_library(headerdtc_options INTERFACE)
target_compile_options(headerdtc_options INTERFACE -Wall -Wextra)
if(CMAKE_UNITY_BUILD)
    # Several sources of a room are one unit then: what is private to one of them looks to GCC as if
    # it came from a header, and with more to inline it takes variants for uninitialised. The debug
    # preset, a unit for each source, keeps both warnings.
    target_compile_options(headerdtc_options INTERFACE
        $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage -Wno-maybe-uninitialized>)
endif()
if(HEADERDTC_WERROR)
    target_compile_options(headerdtc_options INTERFACE -Werror)
endif()
# Pages and configurations come from anywhere: what goes wrong all the same ends the program.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
target_compile_options(headerdtc_options INTERFACE -fstack-protector-strong)
target_compile_definitions(headerdtc_options INTERFACE _GLIBCXX_ASSERTIONS)
target_link_options(headerdtc_options INTERFACE -Wl,-z,relro,-z,now)
if(HEADERDTC_SANITIZE)
    target_compile_options(headerdtc_options INTERFACE
        -fsanitize=${HEADERDTC_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(headerdtc_options INTERFACE -fsanitize=${HEADERDTC_SANITIZE})
else()
    # Needs optimisation, and stands in the sanitizers' way.
    target_compile_options(headerdtc_options INTERFACE
        $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE$<SEMICOLON>-D_FORTIFY_SOURCE=2>)
endif()
target_include_directories(headerdtc_options INTERFACE "${CMAKE_SOURCE_DIR}/src")

# headerdtc_room(name [EVERY_PAGE] SOURCES a.cpp ... DEPENDS room ... LIBRARIES target ...)
# One static library for one folder of src/; DEPENDS names the rooms it may include. EVERY_PAGE: what
# it does is done for each page of a site.
function(headerdtc_room name)
    cmake_parse_arguments(ARG "EVERY_PAGE" "" "SOURCES;DEPENDS;LIBRARIES" ${ARGN})
    add_library(headerdtc_${name} STATIC ${ARG_SOURCES})
    target_link_libraries(headerdtc_${name} PUBLIC headerdtc_options)
    foreach(room IN LISTS ARG_DEPENDS)
        target_link_libraries(headerdtc_${name} PUBLIC headerdtc_${room})
    endforeach()
    target_link_libraries(headerdtc_${name} PRIVATE ${ARG_LIBRARIES})
    if(ARG_EVERY_PAGE AND CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # GCC bounds by how much inlining may enlarge a unit, and a merged one reaches that bound.
        # It costs time to compile, so only where every page of a site passes.
        target_compile_options(headerdtc_${name} PRIVATE --param=inline-unit-growth=200)
    endif()
endfunction()

# headerdtc_test(name SOURCES a.cpp ... DEPENDS room ...)
# One GoogleTest program; ctest lists its cases one by one.
function(headerdtc_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;DEPENDS;LIBRARIES" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    foreach(room IN LISTS ARG_DEPENDS)
        target_link_libraries(${name} PRIVATE headerdtc_${room})
    endforeach()
    target_link_libraries(${name} PRIVATE headerdtc_options GTest::gmock GTest::gtest_main
                          ${ARG_LIBRARIES})
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 300)
endfunction()
