# Installs the program for Windows, the icons of its file types and its licence; packaging/install.cmake puts the data
# beside the program. tools/build_windows.sh adds the libraries with their licences, and makes the installer
# and the ZIP file.
enable_language(RC)
configure_file(packaging/windows/vorn.rc.in vorn.rc @ONLY)
set_source_files_properties(${CMAKE_BINARY_DIR}/vorn.rc PROPERTIES
    OBJECT_DEPENDS "${CMAKE_SOURCE_DIR}/data/icons/vorn.ico;${CMAKE_SOURCE_DIR}/packaging/windows/vorn.manifest")
target_sources(vorn PRIVATE ${CMAKE_BINARY_DIR}/vorn.rc)
set_target_properties(vorn PROPERTIES WIN32_EXECUTABLE ON)
install(TARGETS vorn RUNTIME DESTINATION .)
install(FILES data/icons/range.ico data/icons/practice.ico data/icons/record.ico DESTINATION icons)
install(FILES LICENSE DESTINATION licences RENAME V.O.R.N.txt)
