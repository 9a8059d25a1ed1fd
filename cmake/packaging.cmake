# Install rules and the Debian package. Installed, the programs go to bin, the shipped defaults
# to share/vantrel (copied into the user's folders on first use), the documentation, desktop
# entry, icons and manual pages to their usual places under share.
include(GNUInstallDirs)

install(TARGETS vantrel-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(TARGET vantrel)
  install(TARGETS vantrel RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/vantrel)
file(GLOB doc_pictures ${PROJECT_SOURCE_DIR}/docs/*.png)
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/docs/simulated-instrument.md
              ${doc_pictures} ${PROJECT_SOURCE_DIR}/packaging/copyright
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${PROJECT_SOURCE_DIR}/packaging/vantrel.desktop
        DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/vantrel.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size 48 128 256)
  install(FILES ${PROJECT_SOURCE_DIR}/packaging/vantrel-${size}.png
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
          RENAME vantrel.png)
endforeach()

# Manual pages and the changelog, compressed as Debian keeps them.
set(changelog ${CMAKE_CURRENT_BINARY_DIR}/man/changelog.gz)
add_custom_command(OUTPUT ${changelog}
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/man
  COMMAND gzip -9n -c ${PROJECT_SOURCE_DIR}/packaging/changelog > ${changelog}
  DEPENDS ${PROJECT_SOURCE_DIR}/packaging/changelog)
install(FILES ${changelog} DESTINATION ${CMAKE_INSTALL_DOCDIR})
set(man_pages)
foreach(page vantrel.1 vantrel-cli.1)
  set(gz ${CMAKE_CURRENT_BINARY_DIR}/man/${page}.gz)
  add_custom_command(OUTPUT ${gz}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/man
    COMMAND gzip -9n -c ${PROJECT_SOURCE_DIR}/packaging/${page} > ${gz}
    DEPENDS ${PROJECT_SOURCE_DIR}/packaging/${page})
  list(APPEND man_pages ${gz})
endforeach()
add_custom_target(vantrel_man ALL DEPENDS ${man_pages} ${changelog})
install(FILES ${man_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vantrel)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Vantrel developers <vantrel@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY
    "measurements of superconducting and Josephson devices at low temperature")
set(CPACK_PACKAGE_DESCRIPTION
    "Vantrel sweeps currents through a sample, reads voltages and draws the\ncurves: V(I), Ic(H), Im(H) and more, with a simulated instrument for work\nwithout cards.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
include(CPack)
