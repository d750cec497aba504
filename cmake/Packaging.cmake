# What an installation consists of, and the Debian package (scripts/package.sh builds it).
include(GNUInstallDirs)
set(share "${CMAKE_INSTALL_DATADIR}")
install(TARGETS qm_snipdeck qm_snipdeck_holder RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES packaging/first_settings.ini DESTINATION "${share}/qm_snipdeck")
install(FILES packaging/org.qm_snipdeck.QM_Snipdeck.desktop DESTINATION "${share}/applications")
install(FILES packaging/org.qm_snipdeck.QM_Snipdeck.metainfo.xml DESTINATION "${share}/metainfo")
install(FILES data/icons/program.svg DESTINATION "${share}/icons/hicolor/scalable/apps" RENAME qm_snipdeck.svg)
install(FILES LICENSE DESTINATION "${share}/doc/qm-snipdeck" RENAME copyright)

# Manuals and the list of packages are kept compressed on Debian systems, always to the same bytes.
find_program(SNIPDECK_GZIP gzip REQUIRED)
function(snipdeck_install_compressed file destination)
  set(compressed "${CMAKE_BINARY_DIR}/packaging/${file}.gz")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/packaging/${file}")
  file(MAKE_DIRECTORY "${CMAKE_BINARY_DIR}/packaging")
  execute_process(COMMAND "${SNIPDECK_GZIP}" -9nc "${CMAKE_SOURCE_DIR}/packaging/${file}" OUTPUT_FILE "${compressed}"
    COMMAND_ERROR_IS_FATAL ANY)
  install(FILES "${compressed}" DESTINATION "${destination}")
endfunction()
snipdeck_install_compressed(qm_snipdeck.1 "${CMAKE_INSTALL_MANDIR}/man1")
snipdeck_install_compressed(qm_snipdeck_holder.1 "${CMAKE_INSTALL_MANDIR}/man1")
snipdeck_install_compressed(changelog "${share}/doc/qm-snipdeck")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qm-snipdeck)
set(CPACK_PACKAGE_CONTACT "The QM_Snipdeck authors <qm-snipdeck@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "clipboard collector with twelve rich-text boxes")
set(CPACK_PACKAGE_DESCRIPTION
  "While it runs, every text that any program copies lands, formatting and all,\nin the next of twelve boxes and at the end of one growing text.")
set(CPACK_PACKAGING_INSTALL_PREFIX "/usr")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries that the programs were linked with; a font has to be asked for by name: with others alone a bare system shows
# its menus in a typewriter face.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-liberation, fonts-crosextra-carlito, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "libreoffice-writer")
include(CPack)
