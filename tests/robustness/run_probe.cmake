# Runs the lifetime probe for one scenario and requires both a clean exit (status 0, which a crash or a
# sanitizer report at exit would spoil) and its "ok SCENARIO N" line.
#   cmake -DPROBE=... -DEMULATOR=... -DSCENARIO=... -P run_probe.cmake
execute_process(COMMAND ${EMULATOR} ${PROBE} ${SCENARIO}
                RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err TIMEOUT 120)
if(NOT status EQUAL 0 OR NOT out MATCHES "ok ${SCENARIO} [0-9]+")
  message(FATAL_ERROR "scenario ${SCENARIO}: status ${status}\nstdout:\n${out}\nstderr:\n${err}")
endif()
