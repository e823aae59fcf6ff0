# Compiler settings that every target of the project shares.
add_library(ghosthand_options INTERFACE)
target_include_directories(ghosthand_options INTERFACE ${PROJECT_SOURCE_DIR}/include)
if(MSVC)
    target_compile_options(ghosthand_options INTERFACE
        $<$<COMPILE_LANGUAGE:C,CXX>:/W4 /WX /permissive- /utf-8 /EHsc /Zc:__cplusplus
        # a record that is padded because a member asks for its alignment
        /wd4324>)
    set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
else()
    target_compile_options(ghosthand_options INTERFACE
        $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow -Werror
        -Wno-cast-function-type>)
endif()
if(MINGW AND CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    # All that this compiler knows to warn of, but for
    target_compile_options(ghosthand_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Weverything
        # older languages
        -Wno-c++98-compat -Wno-c++98-compat-pedantic -Wno-c++20-compat
        # how records lie in memory: static_assert says so where it counts
        -Wno-padded
        # classes whose table stands in every file, objects with a constructor that stand in none of them: the former
        # are templates, the latter are few, and GoogleTest's
        -Wno-weak-vtables -Wno-global-constructors -Wno-exit-time-destructors
        # pointers, where the platform and the contract have them
        -Wno-unsafe-buffer-usage
        # a member that a derived interface names again: "override" tells what is meant
        -Wno-overloaded-virtual
        # a switch over some values of an enumeration with a default, or over all of them without
        -Wno-switch-enum -Wno-switch-default
        # comparing with a value that was stored, not computed
        -Wno-float-equal
        # functions that another file declares itself: a wrong declaration does not link
        -Wno-missing-prototypes
        # what a lambda takes along under the name that it had
        -Wno-shadow-uncaptured-local
        # std::lock_guard without the type of its mutex
        -Wno-ctad-maybe-unsupported
        # what headers of the platform and of the standard library do in our files
        -Wno-cast-function-type -Wno-cast-qual -Wno-extra-semi-stmt -Wno-used-but-marked-unused -Wno-deprecated-declarations
        # the sample host's indices: numbers in messages
        $<$<STREQUAL:$<TARGET_PROPERTY:NAME>,sample_host>:-Wno-sign-conversion>>)
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
