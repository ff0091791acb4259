# cmake --install: the programs, the desktop entry, the type of ".mrlibrary" packages and the icon.
if(TARGET mosaro)
    install(TARGETS mosaro RUNTIME)
    install(FILES "${PROJECT_SOURCE_DIR}/resources/desktop/org.mosaro.Mosaro.desktop"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
    install(FILES "${PROJECT_SOURCE_DIR}/resources/desktop/org.mosaro.Mosaro.mime.xml"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/mime/packages" RENAME org.mosaro.Mosaro.xml)
    install(FILES "${PROJECT_SOURCE_DIR}/resources/icons/org.mosaro.Mosaro.svg"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")
endif()
if(TARGET mosaroctl)
    install(TARGETS mosaroctl RUNTIME)
endif()
install(TARGETS mosaro-svg mosaro-raw RUNTIME DESTINATION "${CMAKE_INSTALL_LIBEXECDIR}/mosaro")
