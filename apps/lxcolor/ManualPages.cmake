# Writes the manual pages: lxcolor.1 and one a subcommand, as PROGRAM prints them, into the folder DIR.
file(REMOVE_RECURSE "${DIR}")

function(write_page name)
    execute_process(COMMAND "${PROGRAM}" ${ARGN} --help-as man OUTPUT_FILE "${DIR}/${name}.1" COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(MAKE_DIRECTORY "${DIR}")
execute_process(COMMAND "${PROGRAM}" --help-as options OUTPUT_VARIABLE lines COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "^.*\narguments\t[^\n]*\n" "" lines "${lines}")
string(REGEX MATCHALL "[^\n\t]+\t[^\n]+" lines "${lines}")
foreach(line IN LISTS lines)
    string(REGEX REPLACE "\t.*" "" subcommand "${line}")
    write_page("lxcolor-${subcommand}" "${subcommand}")
endforeach()
write_page(lxcolor)
