# OSTREL_QMLCACHEGEN is what compiles views, for the property QT_QMLCACHEGEN_EXECUTABLE of a target:
# Qt's compiler, whose code is brought into one order, so that packages can be made again and ccache
# knows the code.
if(CMAKE_HOST_UNIX)
    get_target_property(OSTREL_QT_QMLCACHEGEN Qt6::qmlcachegen LOCATION)
    set(OSTREL_QMLCACHEGEN ${CMAKE_BINARY_DIR}/qmlcachegen)
    configure_file(${CMAKE_CURRENT_LIST_DIR}/qmlcachegen.in ${OSTREL_QMLCACHEGEN} @ONLY
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
else()
    set(OSTREL_QMLCACHEGEN qmlcachegen)
endif()
