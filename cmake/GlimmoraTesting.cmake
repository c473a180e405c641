# glimmora_add_test(<name> LABEL unit|x11|bench SOURCES ... [LIBRARIES ...] [TIMEOUT s])
#
# Tests link the same library as the application. `unit` tests run on the
# offscreen platform; `x11` tests run against the server that
# scripts/run-tests.sh starts (DISPLAY is inherited); `bench` targets are
# registered but left out of the test command.
function(glimmora_add_test name)
    cmake_parse_arguments(ARG "" "LABEL;TIMEOUT" "SOURCES;LIBRARIES" ${ARGN})
    if(NOT ARG_LABEL)
        message(FATAL_ERROR "glimmora_add_test(${name}) needs a LABEL")
    endif()
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE glimmora_core glimmora_coreplugin Qt6::Test ${ARG_LIBRARIES})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support)
    add_test(NAME ${name} COMMAND ${name})
    set(env "QT_LOGGING_RULES=glimmora.*.debug=true")
    if(ARG_LABEL STREQUAL "unit")
        list(APPEND env "QT_QPA_PLATFORM=offscreen")
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    set_tests_properties(${name} PROPERTIES
        LABELS ${ARG_LABEL}
        TIMEOUT ${ARG_TIMEOUT}
        ENVIRONMENT "${env}")
endfunction()
