# `cmake --build --preset dev --target translation-template` writes every translatable text to
# translations/ostrel.ts in the build folder, as a start for translators.
find_program(OSTREL_LUPDATE NAMES lupdate lupdate6 lupdate-qt6 HINTS ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS}
    DOC "The program that collects the texts, of the package qt6-l10n-tools")
if(NOT OSTREL_LUPDATE)
    return()
endif()
set(template ${CMAKE_BINARY_DIR}/translations/ostrel.ts)
set(collect ${OSTREL_LUPDATE} -locations none -source-language en_US -extensions cpp,h,qml
    ${CMAKE_SOURCE_DIR}/src)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/translations)
add_custom_target(translation-template
    COMMAND ${collect} -no-obsolete -ts ${template}
    COMMENT "Collecting the texts for translators"
    VERBATIM)
if(BUILD_TESTING)
    add_test(NAME TranslationTemplate.HoldsTheTexts
        COMMAND ${collect} -ts ${CMAKE_BINARY_DIR}/translations/tested.ts)
    set_tests_properties(TranslationTemplate.HoldsTheTexts PROPERTIES
        PASS_REGULAR_EXPRESSION "Found [1-9][0-9]+ source text")
endif()
