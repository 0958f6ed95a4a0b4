# The folder of the program for Windows: the program, the data beside it, and our licences. tools/build_windows.sh adds the
# libraries and makes the installer.
enable_language(RC)
configure_file(packaging/windows/vorn.rc.in vorn.rc @ONLY)
set_source_files_properties(${CMAKE_BINARY_DIR}/vorn.rc PROPERTIES
    OBJECT_DEPENDS "${CMAKE_SOURCE_DIR}/data/icons/vorn.ico;${CMAKE_SOURCE_DIR}/packaging/windows/vorn.manifest")
target_sources(vorn PRIVATE ${CMAKE_BINARY_DIR}/vorn.rc)
set_target_properties(vorn PROPERTIES WIN32_EXECUTABLE ON)
install(TARGETS vorn RUNTIME DESTINATION .)
install(FILES LICENSE DESTINATION licences RENAME V.O.R.N.txt)
