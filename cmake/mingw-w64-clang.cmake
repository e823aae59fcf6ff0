# Cross-compiles for 64-bit Windows with clang and lld, on the headers and libraries of Debian's mingw-w64.
include(${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake)
set(gcc ${CMAKE_CXX_COMPILER})
set(CMAKE_C_COMPILER clang-19)
set(CMAKE_CXX_COMPILER clang++-19)
set(CMAKE_C_COMPILER_TARGET x86_64-w64-mingw32)
set(CMAKE_CXX_COMPILER_TARGET x86_64-w64-mingw32)

# Of the two flavours of the standard library clang would take the one without threads.
execute_process(COMMAND ${gcc} -E -v -x c++ /dev/null
    OUTPUT_QUIET ERROR_VARIABLE search COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "\n /[^\n]*c\\+\\+[^\n]*" folders "${search}")
# The variables of a thread are to lie where it looks for them.
set(CMAKE_CXX_FLAGS_INIT "-femulated-tls -nostdinc++")
foreach(folder IN LISTS folders)
    string(STRIP "${folder}" folder)
    string(APPEND CMAKE_CXX_FLAGS_INIT " -isystem ${folder}")
endforeach()
execute_process(COMMAND ${gcc} -print-file-name=libstdc++.a
    OUTPUT_VARIABLE library OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
cmake_path(GET library PARENT_PATH library)
foreach(kind EXE SHARED)
    set(CMAKE_${kind}_LINKER_FLAGS_INIT "-fuse-ld=lld -L${library} -lpthread")
endforeach()
