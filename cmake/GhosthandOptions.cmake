# Compiler settings that every target of the project shares.
add_library(ghosthand_options INTERFACE)
target_include_directories(ghosthand_options INTERFACE ${PROJECT_SOURCE_DIR}/include)
if(MSVC)
    target_compile_options(ghosthand_options INTERFACE /W4 /WX /permissive- /utf-8 /EHsc)
    set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
else()
    target_compile_options(ghosthand_options INTERFACE
        $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow -Werror
        -Wno-cast-function-type>)
endif()
if(WIN32)
    # UNICODE is left undefined on purpose: the engine speaks ANSI, as the host programs do.
    target_compile_definitions(ghosthand_options INTERFACE
        WIN32_LEAN_AND_MEAN NOMINMAX STRICT WINVER=0x0A00 _WIN32_WINNT=0x0A00)
    if(MSVC)
        # sscanf and getenv are used with bounds; their replacements exist in this compiler alone.
        target_compile_definitions(ghosthand_options INTERFACE _CRT_SECURE_NO_WARNINGS)
    endif()
    if(MINGW)
        target_link_options(ghosthand_options INTERFACE -static)
        # Leaves out what no exported function needs: every driven program maps the module.
        target_compile_options(ghosthand_options INTERFACE -ffunction-sections -fdata-sections)
        target_link_options(ghosthand_options INTERFACE -Wl,--gc-sections $<$<CONFIG:Release>:-s>)
    endif()
elseif(GHOSTHAND_FUZZ)
    target_compile_options(ghosthand_options INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    target_compile_definitions(ghosthand_options INTERFACE _GLIBCXX_ASSERTIONS)
    target_link_options(ghosthand_options INTERFACE -fsanitize=address,undefined)
elseif(GHOSTHAND_SANITIZE)
    target_compile_options(ghosthand_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all)
    target_link_options(ghosthand_options INTERFACE -fsanitize=address,undefined)
endif()

# A static library of one folder below src/: ghosthand_layer(engine SOURCES a.cpp DEPENDS hostlink).
function(ghosthand_layer name)
    cmake_parse_arguments(LAYER "" "" "SOURCES;DEPENDS" ${ARGN})
    add_library(ghosthand_${name} STATIC ${LAYER_SOURCES})
    target_include_directories(ghosthand_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(ghosthand_${name} PUBLIC ghosthand_options)
    foreach(dependency IN LISTS LAYER_DEPENDS)
        target_link_libraries(ghosthand_${name} PUBLIC ghosthand_${dependency})
    endforeach()
endfunction()
