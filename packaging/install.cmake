# What is installed where, and the Debian package: `cmake --build --preset release && (cd build/release && cpack)`.
set(data share/vorn)
if(WIN32)
    set(data .)   # beside the program
endif()
# Only the shipped files: a source tree in which somebody practises also contains files saved by that user.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS packaging/shipped)
file(STRINGS packaging/shipped shipped)
foreach(name ${shipped})
    cmake_path(GET name PARENT_PATH folder)
    install(FILES "data/ranges/${name}" DESTINATION "${data}/ranges/${folder}")
endforeach()
if(WIN32)
    include(packaging/windows/install.cmake)
    return()
endif()
install(TARGETS vorn RUNTIME DESTINATION bin)
install(FILES packaging/vorn.desktop DESTINATION share/applications)
install(FILES packaging/org.vorn.vorn.metainfo.xml DESTINATION share/metainfo)
install(FILES packaging/vorn-mime.xml DESTINATION share/mime/packages RENAME vorn.xml)

# Debian requires compressed man pages and changelogs, and one file with all licence terms.
find_program(gzip_program gzip)
if(gzip_program)
    foreach(name vorn.1 changelog)
        add_custom_command(OUTPUT ${name}.gz DEPENDS packaging/${name} VERBATIM
            COMMAND ${gzip_program} -9nc ${CMAKE_SOURCE_DIR}/packaging/${name} > ${name}.gz)
    endforeach()
    add_custom_target(compressed_texts ALL DEPENDS vorn.1.gz changelog.gz)
    install(FILES ${CMAKE_BINARY_DIR}/vorn.1.gz DESTINATION share/man/man1)
    install(FILES ${CMAKE_BINARY_DIR}/changelog.gz DESTINATION share/doc/vorn)
else()
    install(FILES packaging/vorn.1 DESTINATION share/man/man1)
    install(FILES packaging/changelog DESTINATION share/doc/vorn)
endif()
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS LICENSE data/ranges/wavs/NOTICE.txt)
file(READ LICENSE licence)
file(READ data/ranges/wavs/NOTICE.txt terms_of_voices)
file(CONFIGURE OUTPUT copyright @ONLY CONTENT [[
Program, texts, ranges, pictures and sounds of V.O.R.N., except the voices of the crew, were made by the V.O.R.N. team.
These are the terms:

@licence@
----------------------------------------------------------------------

The terms of the voices of the crew, in /usr/share/vorn/ranges/wavs (NOTICE.txt there):

@terms_of_voices@]])
install(FILES ${CMAKE_BINARY_DIR}/copyright DESTINATION share/doc/vorn)

install(FILES docs/oddities.md docs/SPEED.md DESTINATION share/doc/vorn)
install(FILES data/icons/vorn.svg DESTINATION share/icons/hicolor/scalable/apps)
foreach(type range practice record)
    install(FILES data/icons/${type}.svg DESTINATION share/icons/hicolor/scalable/mimetypes
        RENAME application-x-vorn-${type}.svg)
endforeach()
foreach(size 16 24 32 48 64 128 256)
    set(folder share/icons/hicolor/${size}x${size})
    install(FILES data/icons/vorn-${size}.png DESTINATION ${folder}/apps RENAME vorn.png)
    foreach(type range practice record)
        install(FILES data/icons/${type}-${size}.png DESTINATION ${folder}/mimetypes RENAME application-x-vorn-${type}.png)
    endforeach()
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vorn)
set(CPACK_PACKAGE_CONTACT "the V.O.R.N. team <vorn@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Gunnery trainer for the gunner's station of a main battle tank")
set(CPACK_PACKAGE_DESCRIPTION
"A practice is set up, fired under a simulated commander and loader, scored,
and debriefed round by round; the record can be printed. A range editor makes
new ranges. Visual and thermal sight; FIN, HESH and coax; keyboard, mouse or
joystick.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION education)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# dpkg-shlibdeps, where it is installed, finds the libraries that the package depends on, and their versions.
find_program(dpkg_shlibdeps dpkg-shlibdeps)
find_program(file_program file)
set(fonts "fonts-liberation2 | fonts-liberation")
if(dpkg_shlibdeps AND file_program)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "${fonts}")
else()
    set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6widgets6, libqt6printsupport6, libqt6svg6, libsdl2-2.0-0, ${fonts}")
endif()
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland")
include(CPack)
