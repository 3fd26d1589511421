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
# The library of one folder. QT turns on moc for its headers.
function(mrl_part)
    cmake_parse_arguments(P "QT" "NAME" "SOURCES;DEPENDS" ${ARGN})
    add_library(${P_NAME} STATIC ${P_SOURCES})
    target_include_directories(${P_NAME} PUBLIC $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>)
    target_link_libraries(${P_NAME} PUBLIC ${P_DEPENDS} PRIVATE mrl_warnings)
    if(P_QT)
        set_target_properties(${P_NAME} PROPERTIES AUTOMOC ON)
    endif()
endfunction()

# mrl_shared(NAME name PARTS ... DEPENDS ... [PRIVATE_DEPENDS ...])
# A shared library of the same objects as the parts.
function(mrl_shared)
    cmake_parse_arguments(P "" "NAME" "PARTS;DEPENDS;PRIVATE_DEPENDS" ${ARGN})
    add_library(${P_NAME} SHARED)
    foreach(part IN LISTS P_PARTS)
        target_sources(${P_NAME} PRIVATE $<TARGET_OBJECTS:${part}>)
    endforeach()
    target_link_libraries(${P_NAME} PUBLIC ${P_DEPENDS} PRIVATE ${P_PRIVATE_DEPENDS})
    target_include_directories(${P_NAME} INTERFACE $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}>)
    # A library that needs what it doesn't link fails here and not where it is loaded. The sanitizers' own symbols come
    # with the program.
    if(NOT MRL_SANITIZE AND NOT MRL_FUZZ)
        target_link_options(${P_NAME} PRIVATE LINKER:--no-undefined)
    endif()
    set_target_properties(${P_NAME} PROPERTIES LINKER_LANGUAGE CXX
        SOVERSION ${PROJECT_VERSION_MAJOR} VERSION ${PROJECT_VERSION})
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
    else()
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
