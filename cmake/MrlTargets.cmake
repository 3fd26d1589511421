# One target a folder. Every folder of the system and of hostlib/ is a static library of position-independent
# objects; the shared libraries are made of exactly these objects, and tests link the static ones.

add_library(mrl_warnings INTERFACE)
target_compile_options(mrl_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
# The tree is written for gcc's warnings; clang, which only builds the fuzz targets, has others.
target_compile_options(mrl_warnings INTERFACE $<$<CXX_COMPILER_ID:Clang>:-Wno-error>)
target_compile_definitions(mrl_warnings INTERFACE QT_DEPRECATED_WARNINGS QT_NO_FOREACH)

if(MRL_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

if(MRL_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

# mrl_part(NAME name SOURCES ... DEPENDS ... [QT])
# The library of one folder. QT: it uses Qt's widgets; its headers go through moc.
function(mrl_part)
    cmake_parse_arguments(P "QT" "NAME" "SOURCES;DEPENDS" ${ARGN})
    add_library(${P_NAME} STATIC ${P_SOURCES})
    set_property(GLOBAL APPEND PROPERTY MRL_PARTS ${P_NAME})
    target_include_directories(${P_NAME} PUBLIC $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>)
    target_link_libraries(${P_NAME} PUBLIC ${P_DEPENDS} PRIVATE mrl_warnings)
    if(P_QT)
        set_target_properties(${P_NAME} PROPERTIES AUTOMOC ON)
        target_precompile_headers(${P_NAME} REUSE_FROM mrl_precompiled_widgets)
    endif()
endfunction()

# mrl_shared(NAME name PARTS ... DEPENDS ... [PRIVATE_DEPENDS ...] [HOST_BY_PROGRAM])
# A shared library of the same objects as the parts. HOST_BY_PROGRAM: it links no host; the program that links it
# brings one.
function(mrl_shared)
    cmake_parse_arguments(P "HOST_BY_PROGRAM" "NAME" "PARTS;DEPENDS;PRIVATE_DEPENDS" ${ARGN})
    add_library(${P_NAME} SHARED)
    foreach(part IN LISTS P_PARTS)
        target_sources(${P_NAME} PRIVATE $<TARGET_OBJECTS:${part}>)
    endforeach()
    target_link_libraries(${P_NAME} PUBLIC ${P_DEPENDS} PRIVATE ${P_PRIVATE_DEPENDS})
    target_include_directories(${P_NAME} INTERFACE $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>)
    # What the library doesn't use isn't loaded with it, whatever the targets that it links pass on.
    target_link_options(${P_NAME} PRIVATE LINKER:--as-needed)
    # A library that needs what it doesn't link fails here and not where it is loaded. The sanitizers' own symbols come
    # with the program.
    if(NOT MRL_SANITIZE AND NOT MRL_FUZZ AND NOT P_HOST_BY_PROGRAM)
        target_link_options(${P_NAME} PRIVATE LINKER:--no-undefined)
    endif()
    set_target_properties(${P_NAME} PROPERTIES LINKER_LANGUAGE CXX INSTALL_RPATH "$ORIGIN"
        SOVERSION ${PROJECT_VERSION_MAJOR} VERSION ${PROJECT_VERSION})
endfunction()

# mrl_check_layers(ABOVE folder ...)
# Fails when a part outside of these folders links a target that is made in one of them. Called when all targets are
# there. Includes are held by packaging/check-includes; this holds what CMake links.
function(mrl_check_layers)
    cmake_parse_arguments(P "" "" "ABOVE" ${ARGN})
    list(JOIN P_ABOVE "|" above)
    set(above "^${CMAKE_SOURCE_DIR}/(${above})(/|$)")
    get_property(parts GLOBAL PROPERTY MRL_PARTS)
    foreach(part IN LISTS parts)
        get_target_property(home ${part} SOURCE_DIR)
        get_target_property(links ${part} INTERFACE_LINK_LIBRARIES)
        if(home MATCHES "${above}" OR NOT links)
            continue()
        endif()
        foreach(link IN LISTS links)
            string(REGEX REPLACE "^\\$<LINK_ONLY:(.*)>$" "\\1" link "${link}")
            if(NOT TARGET ${link})
                continue()
            endif()
            get_target_property(imported ${link} IMPORTED)
            get_target_property(folder ${link} SOURCE_DIR)
            if(NOT imported AND folder MATCHES "${above}")
                message(FATAL_ERROR "${part} links ${link}, which belongs to the host or to a program. The system "
                                    "links host/ alone.")
            endif()
        endforeach()
    endforeach()
endfunction()

# mrl_test(NAME folder SOURCES ... LINKS ... [WINDOW] [TIMEOUT seconds] [LABELS ...])
# The tests of one folder as one program, test_<folder>; each test case is a CTest test of its own.
# WINDOW: the program makes a QApplication on the offscreen platform before the tests run.
function(mrl_test)
    cmake_parse_arguments(P "WINDOW" "NAME;TIMEOUT" "SOURCES;LINKS;LABELS" ${ARGN})
    set(target test_${P_NAME})
    add_executable(${target} ${P_SOURCES})
    target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR} ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${target} PRIVATE ${P_LINKS} mrl_warnings GTest::gmock)
    if(P_WINDOW)
        set_target_properties(${target} PROPERTIES AUTOMOC ON)
        target_link_libraries(${target} PRIVATE test_window_main Qt5::Test)
        target_precompile_headers(${target} REUSE_FROM mrl_precompiled_window_tests)
    else()
        target_precompile_headers(${target} REUSE_FROM mrl_precompiled_tests)
        target_link_libraries(${target} PRIVATE GTest::gmock_main)
    endif()
    if(NOT P_TIMEOUT)
        set(P_TIMEOUT 120)
    endif()
    gtest_discover_tests(${target} TEST_PREFIX ${P_NAME}. DISCOVERY_MODE PRE_TEST
        PROPERTIES TIMEOUT ${P_TIMEOUT} ENVIRONMENT "${MRL_TEST_ENVIRONMENT}" LABELS "${P_NAME};${P_LABELS}")
endfunction()

set(MRL_TEST_ENVIRONMENT
    "QT_QPA_PLATFORM=offscreen"
    "LC_ALL=C.UTF-8"
    "MRL_DESIGNCODE_PATH=${CMAKE_SOURCE_DIR}/designcodes"
    "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0"
    "UBSAN_OPTIONS=print_stacktrace=1"
    "ASAN_OPTIONS=detect_stack_use_after_return=0")
