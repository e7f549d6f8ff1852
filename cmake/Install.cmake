# Installing and packaging: the program, its data, and what a Linux desktop looks for (a launcher,
# the icon in the hicolor theme, AppStream metadata); CPack turns the same into a .deb.
include(GNUInstallDirs)

set(BQ_APP_ID org.example.bramblequay)
set(BQ_RELEASE_DATE 2026-11-23)  # of the project's version, for the metadata's release entry

# The installed program finds its data by this path from its own folder.
file(RELATIVE_PATH BQ_DATA_FROM_BIN ${CMAKE_INSTALL_FULL_BINDIR}
     ${CMAKE_INSTALL_FULL_DATADIR}/bramblequay)
# And its modules, loaded when first needed, by this one.
file(RELATIVE_PATH BQ_MODULES_FROM_BIN ${CMAKE_INSTALL_FULL_BINDIR}
     ${CMAKE_INSTALL_FULL_LIBDIR}/bramblequay)
target_compile_definitions(bq_qt PRIVATE BQ_DATA_FROM_BIN="${BQ_DATA_FROM_BIN}"
                                         BQ_MODULES_FROM_BIN="${BQ_MODULES_FROM_BIN}")

install(TARGETS bramblequay RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS bramblequay-net bramblequay-sound
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/bramblequay)
list(TRANSFORM BQ_DATA_FILES PREPEND ${PROJECT_SOURCE_DIR}/data/ OUTPUT_VARIABLE bq_data_paths)
install(FILES ${bq_data_paths} DESTINATION ${CMAKE_INSTALL_DATADIR}/bramblequay)

install(FILES ${PROJECT_SOURCE_DIR}/data/${BQ_APP_ID}.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
configure_file(${PROJECT_SOURCE_DIR}/data/${BQ_APP_ID}.metainfo.xml.in
               ${PROJECT_BINARY_DIR}/${BQ_APP_ID}.metainfo.xml @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/${BQ_APP_ID}.metainfo.xml
        DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
foreach(size IN ITEMS 16 22 24 32 48 64 128 256)
  install(FILES ${PROJECT_SOURCE_DIR}/data/bramblequay-${size}.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
          RENAME ${BQ_APP_ID}.png)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/data/bramblequay.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps RENAME ${BQ_APP_ID}.svg)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME bramblequay)
set(CPACK_PACKAGE_VENDOR "The Bramblequay developers")
set(CPACK_PACKAGE_CONTACT "The Bramblequay developers <bramblequay@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "two-player card game: put your Stack in order first")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://bramblequay.example/")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION games)
# The Qt libraries it links come from the libraries themselves.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
include(CPack)
