# A room is a folder of src/ made into one library that is linked to what it may see.

# vexa_room(NAME FOLDER [QT] [LINKS targets...] [PRIVATE targets...] [PCH headers...]); QT: its classes have signals.
function(vexa_room name folder)
    cmake_parse_arguments(arg "QT" "" "LINKS;PRIVATE;PCH" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/*.cpp
         ${CMAKE_SOURCE_DIR}/src/${folder}/*.h)
    if(NOT sources MATCHES "\\.cpp")
        file(WRITE ${CMAKE_BINARY_DIR}/empty/${name}.cpp "")
        list(APPEND sources ${CMAKE_BINARY_DIR}/empty/${name}.cpp)
    endif()
    add_library(${name} STATIC ${sources})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX AUTOMOC ${arg_QT})
    target_link_libraries(${name} PUBLIC vexa_options ${arg_LINKS} PRIVATE ${arg_PRIVATE})
    if(VEXA_PCH AND arg_PCH)
        target_precompile_headers(${name} PRIVATE ${arg_PCH})
    endif()
endfunction()

# vexa_tests(NAME FOLDER LINKS targets...): one program for the tests of a folder.
function(vexa_tests name folder)
    cmake_parse_arguments(arg "" "" "LINKS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/tests/${folder}/*.cpp
         ${CMAKE_SOURCE_DIR}/tests/${folder}/*.h)
    if(NOT sources)
        return()
    endif()
    add_executable(${name} ${sources})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE vexa_options ${arg_LINKS} vexa_test_support GTest::gmock)
    add_dependencies(${name} datafiles)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST PROPERTIES TIMEOUT 300)
endfunction()
