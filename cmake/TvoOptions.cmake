# Compiler settings of every target, as one interface library.
add_library(tvo_options INTERFACE)

target_compile_features(tvo_options INTERFACE cxx_std_20)
target_compile_options(tvo_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    # Log lines and checks carry paths relative to the project's root.
    -fmacro-prefix-map=${PROJECT_SOURCE_DIR}/=)
if(TVO_WARNINGS_AS_ERRORS)
    target_compile_options(tvo_options INTERFACE -Werror)
endif()

if(TVO_SANITIZERS)
    target_compile_options(tvo_options INTERFACE
        -fsanitize=${TVO_SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(tvo_options INTERFACE -fsanitize=${TVO_SANITIZERS})
endif()

find_package(Threads REQUIRED)
target_link_libraries(tvo_options INTERFACE Threads::Threads)
