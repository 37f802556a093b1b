# The install rules under test: an install into a temporary prefix, the
# installed program started headless, the desktop entry, MIME type and manual
# page checked by their own tools.
add_test(NAME install_into_prefix
  COMMAND bash ${CMAKE_SOURCE_DIR}/tests/install/install_test.sh ${CMAKE_BINARY_DIR} ${PROJECT_VERSION})
set_tests_properties(install_into_prefix PROPERTIES TIMEOUT 120)
