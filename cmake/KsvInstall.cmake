# Installs the program as a desktop program: the executable in bin; the files
# it ships read-only in share/kestrovane (the example planning, the remark
# template), where Paths::shippedDirFor finds them; its menu entry, its icon
# at every usual size, the MIME type that lets a double click open a .ksv,
# and its manual page.
include(GNUInstallDirs)

set(KSV_DIST ${CMAKE_SOURCE_DIR}/dist)
set(KSV_DIST_BUILD ${CMAKE_BINARY_DIR}/dist)
set(KSV_SHARE ${CMAKE_INSTALL_DATADIR}/kestrovane)

install(TARGETS kestrovane RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

# The built program finds the remark template beside it, as an installed one
# finds it in share/kestrovane.
get_filename_component(program_dir ${KSV_EXAMPLE_FILE} DIRECTORY)
configure_file(${KSV_DIST}/Ksv_Remarks.txt ${program_dir}/Ksv_Remarks.txt COPYONLY)
install(FILES ${KSV_EXAMPLE_FILE} ${KSV_DIST}/Ksv_Remarks.txt DESTINATION ${KSV_SHARE})

install(FILES ${KSV_DIST}/kestrovane.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${KSV_DIST}/kestrovane-mime.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages
        RENAME kestrovane.xml)

# The icon is drawn once as SVG; the PNG sizes are rendered from it.
find_program(KSV_RSVG_CONVERT rsvg-convert REQUIRED)
set(icons_dir ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
set(pngs)
foreach(size 16 24 32 48 64 128 256)
  set(png ${KSV_DIST_BUILD}/icons/${size}/kestrovane.png)
  add_custom_command(OUTPUT ${png}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${KSV_DIST_BUILD}/icons/${size}
    COMMAND ${KSV_RSVG_CONVERT} -w ${size} -h ${size} -o ${png} ${KSV_DIST}/kestrovane.svg
    DEPENDS ${KSV_DIST}/kestrovane.svg
    VERBATIM)
  list(APPEND pngs ${png})
  install(FILES ${png} DESTINATION ${icons_dir}/${size}x${size}/apps)
endforeach()
install(FILES ${KSV_DIST}/kestrovane.svg DESTINATION ${icons_dir}/scalable/apps)

# The manual page, with the project's version, compressed as Debian wants it.
configure_file(${KSV_DIST}/kestrovane.1.in ${KSV_DIST_BUILD}/kestrovane.1 @ONLY)
set(man_gz ${KSV_DIST_BUILD}/kestrovane.1.gz)
add_custom_command(OUTPUT ${man_gz}
  COMMAND gzip -9 -n -f -k ${KSV_DIST_BUILD}/kestrovane.1
  DEPENDS ${KSV_DIST_BUILD}/kestrovane.1
  VERBATIM)
install(FILES ${man_gz} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

add_custom_target(desktop_files ALL DEPENDS ${pngs} ${man_gz})
