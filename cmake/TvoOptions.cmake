# Compiler settings of every target, as one interface library.
add_library(tvo_options INTERFACE)

# Log lines and checks carry paths relative to the project's root. ccache hands the compiler paths
# relative to the build folder; this one ends with a slash.
file(RELATIVE_PATH TVO_SOURCE_FROM_BUILD ${PROJECT_BINARY_DIR} ${PROJECT_SOURCE_DIR})

target_compile_features(tvo_options INTERFACE cxx_std_20)
target_compile_options(tvo_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=
    -fmacro-prefix-map=${TVO_SOURCE_FROM_BUILD}=)
if(TVO_WARNINGS_AS_ERRORS)
    target_compile_options(tvo_options INTERFACE -Werror)
endif()

if(TVO_SANITIZERS)
    # The check of virtual tables opens a pipe to look at memory, and takes a process without free
    # descriptors for one with broken objects. What the sanitizers put in makes g++ warn of values
    # that are always set; the plain build warns of the others.
    target_compile_options(tvo_options INTERFACE
        -fsanitize=${TVO_SANITIZERS} -fno-sanitize=vptr
        -fno-sanitize-recover=all -fno-omit-frame-pointer
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(tvo_options INTERFACE -fsanitize=${TVO_SANITIZERS})
endif()

if(TVO_FUZZ)
    # What is fuzzed has to report its branches to libFuzzer.
    target_compile_options(tvo_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

find_package(Threads REQUIRED)
target_link_libraries(tvo_options INTERFACE Threads::Threads)
