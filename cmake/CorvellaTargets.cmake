# The functions that declare Corvella's libraries, tests, benchmarks and fuzzers. Every source, header included, is
# listed; DEPENDS names all that a target may use.

# corvella_library(NAME Model FOLDER model SOURCES a.cpp a.h ... DEPENDS Corvella::Base Qt6::Core ...)
# A static library corvella_model, alias Corvella::Model. FOLDER is the calling folder below its include root (src/ or
# tests/), so that headers are included as "model/CVDocument.h". PRIVATE_DEPENDS are used by the .cpp files alone.
function(corvella_library)
    cmake_parse_arguments(PARSE_ARGV 0 ARG "" "NAME;FOLDER" "SOURCES;DEPENDS;PRIVATE_DEPENDS")
    _corvella_require_arguments(corvella_library NAME FOLDER SOURCES)
    string(REGEX REPLACE "/${ARG_FOLDER}$" "" includeRoot "${CMAKE_CURRENT_SOURCE_DIR}")
    if(includeRoot STREQUAL CMAKE_CURRENT_SOURCE_DIR)
        message(FATAL_ERROR "corvella_library(${ARG_NAME}): this folder does not end in '${ARG_FOLDER}'")
    endif()

    string(TOLOWER "corvella_${ARG_NAME}" target)
    add_library(${target} STATIC ${ARG_SOURCES})
    add_library(Corvella::${ARG_NAME} ALIAS ${target})
    target_include_directories(${target} PUBLIC "${includeRoot}")
    target_link_libraries(${target} PUBLIC ${ARG_DEPENDS} PRIVATE ${ARG_PRIVATE_DEPENDS} Corvella::Flags)
    if("Qt6::Widgets" IN_LIST ARG_DEPENDS)
        corvella_reuse_headers(${target} Widgets)
    else()
        corvella_reuse_headers(${target} Core)
    endif()
endfunction()

# corvella_test(NAME ModelTest LABEL model [GUI] SOURCES ... DEPENDS Corvella::Model ...)
# A GoogleTest program in tests-bin/, one ctest entry. One program holds all tests of a folder: a program costs a link and
# the templates of the test library, and sanitizers a start. A folder's further program says why it stands alone.
# main() comes from Corvella::TestMain, with GUI from Corvella::TestGuiMain. CORVELLA_SOURCE_DIR finds data files.
function(corvella_test)
    cmake_parse_arguments(PARSE_ARGV 0 ARG "GUI" "NAME;LABEL" "SOURCES;DEPENDS")
    _corvella_require_arguments(corvella_test NAME LABEL SOURCES)
    set(main Corvella::TestMain)
    set(headers Tests)
    if(ARG_GUI)
        set(main Corvella::TestGuiMain Qt6::Widgets)
        set(headers GuiTests)
    endif()

    _corvella_program(${ARG_NAME} tests-bin)
    target_compile_definitions(${ARG_NAME} PRIVATE CORVELLA_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    target_link_libraries(${ARG_NAME} PRIVATE ${ARG_DEPENDS} ${main} Corvella::TestKit GTest::gmock GTest::gtest)
    corvella_reuse_headers(${ARG_NAME} ${headers})
    set_target_properties(${ARG_NAME} PROPERTIES CORVELLA_IS_TEST ON)

    add_test(NAME ${ARG_NAME} COMMAND ${ARG_NAME})
    # The thread checker makes some programs twenty times slower.
    set(timeout 900)
    if(CORVELLA_SANITIZE STREQUAL "thread")
        set(timeout 5400)
    endif()
    # Each test gets its own home, so that a test that forgets to redirect the settings or the data file cannot touch
    # the user's.
    set(home "${CMAKE_BINARY_DIR}/tests home")
    file(MAKE_DIRECTORY "${home}")
    set_tests_properties(${ARG_NAME} PROPERTIES
        LABELS "${ARG_LABEL}"
        TIMEOUT ${timeout}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;TZ=UTC;LC_ALL=C.UTF-8;HOME=${home}"
        ENVIRONMENT_MODIFICATION "XDG_DATA_HOME=unset:;XDG_CONFIG_HOME=unset:;XDG_CACHE_HOME=unset:"
    )
    corvella_test_surroundings(${ARG_NAME})
endfunction()

# Sets the environment of a test and of the program that it drives: two font families, and strict sanitizers.
function(corvella_test_surroundings name)
    set(suppressions "${PROJECT_SOURCE_DIR}/tests/sanitizers")
    set_property(TEST ${name} APPEND PROPERTY ENVIRONMENT
        "FONTCONFIG_FILE=${PROJECT_SOURCE_DIR}/tests/fonts.conf"
        "ASAN_OPTIONS=halt_on_error=1:detect_leaks=1:detect_stack_use_after_return=1:strict_string_checks=1:suppressions='${suppressions}/asan.supp'"
        "LSAN_OPTIONS=suppressions='${suppressions}/lsan.supp':print_suppressions=0"
        "TSAN_OPTIONS=halt_on_error=1:second_deadlock_stack=1:suppressions='${suppressions}/tsan.supp'"
        "UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1"
    )
endfunction()

# corvella_benchmark(NAME ParserBenchmark SOURCES ... DEPENDS Corvella::Storage ...)
# A Google Benchmark program in benchmarks-bin/. Its sources define main, or say BENCHMARK_MAIN().
function(corvella_benchmark)
    cmake_parse_arguments(PARSE_ARGV 0 ARG "" "NAME" "SOURCES;DEPENDS")
    _corvella_require_arguments(corvella_benchmark NAME SOURCES)
    _corvella_program(${ARG_NAME} benchmarks-bin)
    target_link_libraries(${ARG_NAME} PRIVATE ${ARG_DEPENDS} benchmark::benchmark)
endfunction()

# corvella_fuzzer(NAME ParserFuzzer SOURCES ... DEPENDS Corvella::Storage ...)
# A libFuzzer program in fuzz-bin/. Its sources define LLVMFuzzerTestOneInput.
function(corvella_fuzzer)
    cmake_parse_arguments(PARSE_ARGV 0 ARG "" "NAME" "SOURCES;DEPENDS")
    _corvella_require_arguments(corvella_fuzzer NAME SOURCES)
    _corvella_program(${ARG_NAME} fuzz-bin)
    target_link_libraries(${ARG_NAME} PRIVATE ${ARG_DEPENDS})
    target_link_options(${ARG_NAME} PRIVATE -fsanitize=fuzzer)
endfunction()

# A macro-like helper: reads the ARG_… variables of the function that calls it.
function(_corvella_require_arguments caller)
    foreach(name IN LISTS ARGN)
        if(NOT DEFINED ARG_${name})
            message(FATAL_ERROR "${caller}(${ARG_NAME}): ${name} is missing")
        endif()
    endforeach()
    if(ARG_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "${caller}(${ARG_NAME}): unknown arguments '${ARG_UNPARSED_ARGUMENTS}'")
    endif()
endfunction()

# Adds the program `name` from the caller's ARG_SOURCES, placed in the folder `output` of the build folder. AUTOMOC is
# off: the sources contain no Q_OBJECT, and looking for one takes seconds with so many programs.
function(_corvella_program name output)
    add_executable(${name} ${ARG_SOURCES})
    set_target_properties(${name} PROPERTIES
        AUTOMOC OFF
        RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/${output}"
    )
    target_link_libraries(${name} PRIVATE Corvella::Flags)
endfunction()
