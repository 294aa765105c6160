# ostrel_read_version(CHANGELOG) sets what the headings of that file say of the sources:
#   OSTREL_RELEASE  the newest release: of the first heading "## VERSION (YYYY-MM-DD)", 0.0.0 if
#                   nothing is released yet
#   OSTREL_VERSION  that number, followed by "+unreleased" if a heading "## Unreleased" comes before
#                   it: for packages, too, that is newer than the release and older than the next
macro(ostrel_read_version changelog)
    file(STRINGS ${changelog} ostrel_headings REGEX "^## " ENCODING UTF-8)
    set(OSTREL_RELEASE 0.0.0)
    set(OSTREL_VERSION "")
    foreach(ostrel_heading IN LISTS ostrel_headings)
        if(ostrel_heading MATCHES "^## ([0-9]+\\.[0-9]+\\.[0-9]+) \\([0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]\\)$")
            set(OSTREL_RELEASE ${CMAKE_MATCH_1})
            break()
        elseif(ostrel_heading STREQUAL "## Unreleased")
            set(OSTREL_VERSION "+unreleased")
        else()
            message(FATAL_ERROR "${changelog} has a heading of neither kind: ${ostrel_heading}")
        endif()
    endforeach()
    string(PREPEND OSTREL_VERSION ${OSTREL_RELEASE})
endmacro()
