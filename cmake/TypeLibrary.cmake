# ghosthand_type_library(target idl): what comes from an interface definition file. The target is a
# static library with the interface and class identifiers; its include folder has <name>_idl.h.
# TYPE_LIBRARY_FILE, a property of the target, names the finished type library, which the custom
# target <target>_tlb builds.
if(MSVC)
    find_program(MIDL_COMPILER midl REQUIRED)
else()
    find_program(WIDL_COMPILER widl REQUIRED)
    # The platform's own interface definitions (oaidl.idl), as the cross compiler or Wine ships them.
    find_path(WIDL_INCLUDE_DIR oaidl.idl
        PATHS /usr/include/wine/wine/windows /usr/x86_64-w64-mingw32/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    # Where importlib finds stdole2.tlb.
    find_path(WIDL_LIBRARY_DIR stdole2.tlb
        PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows $ENV{SystemRoot}/System32
        NO_CMAKE_FIND_ROOT_PATH REQUIRED)
endif()

function(ghosthand_type_library target idl)
    get_filename_component(name ${idl} NAME_WE)
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/generated)
    file(MAKE_DIRECTORY ${folder})
    set(header ${folder}/${name}_idl.h)
    set(identifiers ${folder}/${name}_idl_i.c)
    set(source ${CMAKE_CURRENT_SOURCE_DIR}/${idl})
    if(MSVC)
        add_custom_command(OUTPUT ${header} ${identifiers} DEPENDS ${source}
            COMMAND ${MIDL_COMPILER} /nologo /env x64 /notlb /h ${header} /iid ${identifiers} /out ${folder} ${source}
            COMMENT "Header and identifiers of ${idl}" VERBATIM)
    else()
        set(widl ${WIDL_COMPILER} -I ${WIDL_INCLUDE_DIR})
        add_custom_command(OUTPUT ${header} ${identifiers} DEPENDS ${source}
            COMMAND ${widl} -h -o ${header} ${source}
            COMMAND ${widl} -u -o ${identifiers} ${source}
            COMMENT "Header and identifiers of ${idl}" VERBATIM)
    endif()
    add_library(${target} STATIC ${identifiers} ${header})
    target_include_directories(${target} SYSTEM PUBLIC ${folder})

    set(library ${folder}/${name}.tlb)
    if(MSVC)
        # The library is a 32-bit one although the module is not, so it takes a run of its own.
        set(library_folder ${folder}/type_library)
        file(MAKE_DIRECTORY ${library_folder})
        add_custom_command(OUTPUT ${library} DEPENDS ${source}
            COMMAND ${MIDL_COMPILER} /nologo /env win32 /client none /server none /out ${library_folder}
                /tlb ${library} ${source}
            COMMENT "Type library of ${idl}" VERBATIM)
    else()
        set(unfinished ${folder}/${name}_unfinished.tlb)
        set(run_widl ${PROJECT_SOURCE_DIR}/cmake/RunWidl.cmake)
        add_custom_command(OUTPUT ${library} DEPENDS ${source} ${run_widl} type_library_finisher
            COMMAND ${CMAKE_COMMAND} -DWIDL=${WIDL_COMPILER} -DINCLUDE=${WIDL_INCLUDE_DIR}
                -DLIBRARIES=${WIDL_LIBRARY_DIR} -DIDL=${source} -DOUTPUT=${unfinished} -P ${run_widl}
            COMMAND type_library_finisher ${unfinished} ${library}
            COMMENT "Type library of ${idl}" VERBATIM)
    endif()
    add_custom_target(${target}_tlb DEPENDS ${library})
    set_target_properties(${target} PROPERTIES TYPE_LIBRARY_FILE ${library})
endfunction()
