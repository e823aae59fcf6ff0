# The documents: the target "docs" makes build/docs/html from the guides in docs/ and a type library. What it takes
# (docs/site/requirements.txt) is fetched once into build/tools and stays there. DOCUMENTATION_PYTHON is a command
# that runs Python with it, empty where it cannot be had: then there is no such target.
find_package(Python3 3.10 COMPONENTS Interpreter QUIET)

function(ghosthand_fetch_documentation_tools variable)
    set(${variable} "" PARENT_SCOPE)
    if(NOT Python3_FOUND)
        message(STATUS "Without Python 3.10 or newer there are no HTML documents")
        return()
    endif()
    set(requirements ${PROJECT_SOURCE_DIR}/docs/site/requirements.txt)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${requirements})
    file(SHA256 ${requirements} versions)
    string(SUBSTRING ${versions} 0 12 versions)
    # Some of the packages are made for one version of Python.
    set(folder ${PROJECT_SOURCE_DIR}/build/tools/docs-${versions}-${Python3_VERSION_MAJOR}.${Python3_VERSION_MINOR})
    if(NOT EXISTS ${folder})
        message(STATUS "Fetching what makes the HTML documents (once)")
        # Into a folder of its own first: what was cut off is not taken for the whole.
        string(RANDOM unfinished)
        set(unfinished ${folder}-${unfinished})
        execute_process(COMMAND ${Python3_EXECUTABLE} -m pip install --quiet --disable-pip-version-check --no-deps
                --retries 1 --timeout 15
                --target ${unfinished} --requirement ${requirements}
            TIMEOUT 300 RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE errors)
        if(NOT result EQUAL 0)
            file(REMOVE_RECURSE ${unfinished})
            string(REGEX MATCH "ERROR: [^\n]*" errors "${errors}")
            message(STATUS "There are no HTML documents: pip could not fetch what makes them. ${errors}")
            return()
        endif()
        file(RENAME ${unfinished} ${folder})
    endif()
    set(${variable} ${CMAKE_COMMAND} -E env PYTHONPATH=${folder} ${Python3_EXECUTABLE} -B PARENT_SCOPE)
endfunction()

ghosthand_fetch_documentation_tools(DOCUMENTATION_PYTHON)

# ghosthand_documentation(interfaces): the target "docs", from the type library of the target `interfaces`.
function(ghosthand_documentation interfaces)
    if(NOT DOCUMENTATION_PYTHON)
        return()
    endif()
    set(output ${PROJECT_SOURCE_DIR}/build/docs)
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/docs/*)
    list(FILTER sources EXCLUDE REGEX __pycache__)
    get_target_property(library ${interfaces} TYPE_LIBRARY_FILE)
    set(stamp ${CMAKE_CURRENT_BINARY_DIR}/documents.stamp)
    add_custom_command(OUTPUT ${stamp} BYPRODUCTS ${output}/html/index.html
        COMMAND ${DOCUMENTATION_PYTHON} ${PROJECT_SOURCE_DIR}/docs/site/build.py
            ${library} ${output} ${PROJECT_VERSION}
        COMMAND ${CMAKE_COMMAND} -E touch ${stamp}
        DEPENDS ${sources} ${library} ${interfaces}_tlb
            ${PROJECT_SOURCE_DIR}/tests/type_library/type_library_file.py
            ${PROJECT_SOURCE_DIR}/tests/type_library/type_library_tables.py
        COMMENT "Documents: ${output}/html/index.html" VERBATIM)
    add_custom_target(docs ALL DEPENDS ${stamp})
    # For whoever packs them.
    set_target_properties(docs PROPERTIES GHOSTHAND_HTML_FOLDER ${output}/html)
endfunction()
