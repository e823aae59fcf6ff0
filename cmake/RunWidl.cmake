# Writes a type library with widl:
#   cmake -DWIDL=<widl> -DINCLUDE=<folder> -DLIBRARIES=<folder> -DIDL=<file> -DOUTPUT=<file> -P RunWidl.cmake
# widl succeeds even when it leaves something out. The one thing that it is known to leave out, the
# default values of 64-bit parameters, finish_type_library puts in; anything else fails the build.
execute_process(
    COMMAND ${WIDL} -m32 -t -I ${INCLUDE} -L ${LIBRARIES} -o ${OUTPUT} ${IDL}
    RESULT_VARIABLE result OUTPUT_VARIABLE text ERROR_VARIABLE text)
string(REGEX REPLACE "warning: can't write value of type 20 yet\r?\n?" "" text "${text}")
if(NOT result EQUAL 0 OR NOT text STREQUAL "")
    file(REMOVE ${OUTPUT})
    message(FATAL_ERROR "widl (${result}) could not write the whole type library:\n${text}")
endif()
