# The one INTERFACE target that every target of ours links: language level, warnings, Qt's
# strictness macros, sanitizers, counters of lines.
add_library(ostrel_options INTERFACE)
target_compile_features(ostrel_options INTERFACE cxx_std_20)
target_compile_options(ostrel_options INTERFACE
    # The QML compiler's code shadows its own parameters; no other warning is disabled.
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:OSTREL_HAS_GENERATED_QML>>>:-Wshadow>
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Woverloaded-virtual -Wformat=2 -fno-omit-frame-pointer)
target_compile_definitions(ostrel_options INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_NO_KEYWORDS
    QT_NO_FOREACH
    QT_STRICT_ITERATORS)
if(OSTREL_SANITIZE)
    # Qt's libraries hide their type information, so a correct cast to one of their classes looks
    # wrong to the vptr check.
    target_compile_options(ostrel_options INTERFACE
        -fsanitize=${OSTREL_SANITIZE} -fno-sanitize=vptr -fno-sanitize-recover=all)
    target_link_options(ostrel_options INTERFACE -fsanitize=${OSTREL_SANITIZE})
endif()
if(OSTREL_COVERAGE)
    # Without atomic counters, threads lose each other's counts.
    target_compile_options(ostrel_options INTERFACE --coverage -fprofile-update=atomic)
    target_link_options(ostrel_options INTERFACE --coverage)
endif()
if(OSTREL_SANITIZE OR OSTREL_COVERAGE)
    # The code that Qt's compiler generates from the views takes a third of the time of everything
    # else, and isn't ours: the views are interpreted instead.
    set(OSTREL_QML_CACHE NO_CACHEGEN)
endif()
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
