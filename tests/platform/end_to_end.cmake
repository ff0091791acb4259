# The services of the session bus, against a bus and small services of the test's own.
find_program(MOSARO_DBUS_RUN_SESSION dbus-run-session REQUIRED)
add_executable(session_bus_platform "${CMAKE_CURRENT_SOURCE_DIR}/platform/session_bus.cpp")
target_include_directories(session_bus_platform PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
target_link_libraries(session_bus_platform PRIVATE mosaro_platform Qt6::DBus Qt6::Test)
add_test(NAME platform.session_bus
    COMMAND "${MOSARO_DBUS_RUN_SESSION}" -- $<TARGET_FILE:session_bus_platform>)
set_tests_properties(platform.session_bus PROPERTIES TIMEOUT 180 ENVIRONMENT "${MOSARO_TEST_ENVIRONMENT}")
