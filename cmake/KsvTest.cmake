# ksv_add_test(<name> SOURCES <files...> [LIBS <targets...>] [WIDGETS])
# One executable per test folder; every test case becomes its own ctest entry and
# runs headless with a fixed locale and time zone.
function(ksv_add_test name)
  cmake_parse_arguments(ARG "WIDGETS" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  if(ARG_WIDGETS)
    target_link_libraries(${name} PRIVATE ksv_testmain_widgets ksv_ui)
  else()
    target_link_libraries(${name} PRIVATE ksv_testmain_core)
  endif()
  target_link_libraries(${name} PRIVATE ksv_testsupport ksv_headless GTest::gtest ${ARG_LIBS})
  set(env "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LANG=C.UTF-8;TZ=UTC;KESTROVANE_HOME=")
  gtest_discover_tests(${name}
    DISCOVERY_TIMEOUT 60
    PROPERTIES ENVIRONMENT "${env}" TIMEOUT 120
    DISCOVERY_MODE PRE_TEST)
endfunction()
