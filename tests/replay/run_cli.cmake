# Runs oet-replay once with ARGS (a list; run in DIR through EMULATOR, when given) and checks what a
# user sees: the exit status must be STATUS and the error output must contain ERR (when given).
# OUTPUT_FILE, when given, takes standard output (/dev/full: a disk that is full).
set(redirect)
if(OUTPUT_FILE)
  set(redirect OUTPUT_FILE "${OUTPUT_FILE}")
endif()
execute_process(
  COMMAND ${EMULATOR} "${TOOL}" ${ARGS}
  WORKING_DIRECTORY "${DIR}"
  RESULT_VARIABLE status
  ERROR_VARIABLE err
  ${redirect})
if(NOT "${status}" STREQUAL "${STATUS}")
  message(FATAL_ERROR "oet-replay ${ARGS}: exit status ${status}, expected ${STATUS}\n${err}")
endif()
if(ERR)
  string(FIND "${err}" "${ERR}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "oet-replay ${ARGS}: the error output lacks \"${ERR}\":\n${err}")
  endif()
endif()
