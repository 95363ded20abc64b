# Corvella::Flags carries every compile and link option of the project; all targets of CorvellaTargets.cmake link it.

add_library(corvella_flags INTERFACE)
add_library(Corvella::Flags ALIAS corvella_flags)

target_compile_options(corvella_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    # clang's -Wconversion includes -Wsign-conversion, g++'s does not; switching it off gives both the same rule.
    -Wno-sign-conversion
    $<$<BOOL:${CORVELLA_WERROR}>:-Werror>
)
target_compile_definitions(corvella_flags INTERFACE
    CORVELLA_VERSION="${PROJECT_VERSION}"
    QT_DISABLE_DEPRECATED_BEFORE=0x060400
    QT_NO_FOREACH
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_URL_CAST_FROM_STRING
    $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>
)

if(CORVELLA_SANITIZE)
    set(_sanitize "-fsanitize=${CORVELLA_SANITIZE}" -fno-sanitize-recover=all -fno-omit-frame-pointer)
    # Watching the tests' own code for undefined behaviour would double the time that compiling them takes.
    target_compile_options(corvella_flags INTERFACE ${_sanitize}
        $<$<BOOL:$<TARGET_PROPERTY:CORVELLA_IS_TEST>>:-fno-sanitize=undefined>)
    target_link_options(corvella_flags INTERFACE ${_sanitize})
endif()

if(CORVELLA_COVERAGE)
    target_compile_options(corvella_flags INTERFACE --coverage)
    target_link_options(corvella_flags INTERFACE --coverage)
endif()

if(CORVELLA_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        message(FATAL_ERROR "CORVELLA_FUZZ needs clang: libFuzzer is a part of it.")
    endif()
    target_compile_options(corvella_flags INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(corvella_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()
