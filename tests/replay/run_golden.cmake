# Runs one golden session and fails on any difference (through EMULATOR, when given: wine for the
# Windows build):
#   oet-replay FORMAT [EXTRA] SCRIPT --check EXPECTED_OUT   (run in DIR, so that messages name SCRIPT as given)
# FORMAT is --pretty (the JSON the golden sessions compare) unless given (--view for the readable view);
# EXTRA is one more option when given (--host-calls).
# The exit status must be STATUS (0 for a clean session, 1 for one with bad lines), and when
# EXPECTED_ERR is given, the error output must equal that file.
if(NOT FORMAT)
  set(FORMAT --pretty)
endif()
execute_process(
  COMMAND ${EMULATOR} "${TOOL}" ${FORMAT} ${EXTRA} "${SCRIPT}" --check "${EXPECTED_OUT}"
  WORKING_DIRECTORY "${DIR}"
  RESULT_VARIABLE status
  OUTPUT_VARIABLE out
  ERROR_VARIABLE err)
message("${out}")
set(failed FALSE)
if(NOT "${status}" STREQUAL "${STATUS}")
  message("exit status ${status}, expected ${STATUS}")
  set(failed TRUE)
endif()
if(EXPECTED_ERR)
  file(READ "${DIR}/${EXPECTED_ERR}" expected_err)
  string(REPLACE "\r\n" "\n" expected_err "${expected_err}")
  string(REPLACE "\r\n" "\n" err "${err}")
  if(NOT err STREQUAL expected_err)
    message("error output differs from ${EXPECTED_ERR}\n--- expected\n${expected_err}--- actual\n${err}")
    set(failed TRUE)
  endif()
elseif(NOT err STREQUAL "")
  message("unexpected error output:\n${err}")
  set(failed TRUE)
endif()
if(failed)
  message(FATAL_ERROR "golden session ${SCRIPT} failed")
endif()
