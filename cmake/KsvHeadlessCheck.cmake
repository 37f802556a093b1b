# The rules of every subsystem must run without a display. Each headless layer
# links Qt::Core only, and this check refuses, at configure time, any include of
# a Gui, Widgets or PrintSupport header from a source outside a ui/ folder.
function(ksv_check_headless)
  foreach(src IN LISTS ARGN)
    file(STRINGS "${src}" hits REGEX "^[ \t]*#[ \t]*include[ \t]*[<\"](QtWidgets|QtGui|QtPrintSupport)/|^[ \t]*#[ \t]*include[ \t]*[<\"]Q(Widget|Dialog|MainWindow|MessageBox|Application|GuiApplication|Painter|Pixmap|Color|Font|Printer)[>\"]")
    if(hits)
      message(FATAL_ERROR "Headless source ${src} includes a display header: ${hits}")
    endif()
  endforeach()
endfunction()
