# Read by cpack before it packs: the dates in the package are that of the commit, so that two builds
# of one commit give the same bytes. Without a commit (a bare source tree): that of the changelog.
if("$ENV{SOURCE_DATE_EPOCH}" STREQUAL "")
    get_filename_component(fuentes ${CMAKE_CURRENT_LIST_DIR}/../.. ABSOLUTE)
    execute_process(COMMAND git -C ${fuentes} log -1 --format=%ct
        OUTPUT_VARIABLE fecha OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    if(NOT fecha MATCHES "^[0-9]+$")
        execute_process(COMMAND dpkg-parsechangelog -l ${CMAKE_CURRENT_LIST_DIR}/changelog -S Timestamp
            OUTPUT_VARIABLE fecha OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    endif()
    set(ENV{SOURCE_DATE_EPOCH} ${fecha})
endif()
