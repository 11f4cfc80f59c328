# A long session in little memory: a script of LINES calls, each with a note of NOTE_BYTES bytes (the
# output repeats it), runs with the address space limited to LIMIT_KB kilobytes, less than the output:
# printed, written to a file, and checked against that file. Output held in memory until the end would
# not fit (and would come out cut short or not at all).
string(REPEAT "a" ${NOTE_BYTES} note)
set(line "{\"call\": \"OrboPTPAAP::TrackingORPhoneInteractEvent\", \"note\": \"${note}\"}\n")
string(REPEAT "${line}" 100 block)
set(script "${WORK}/long_session.jsonl")
set(printed "${WORK}/long_session.printed")
set(written "${WORK}/long_session.out")
file(WRITE "${script}" "")
math(EXPR blocks "${LINES} / 100")
foreach(i RANGE 1 ${blocks})
  file(APPEND "${script}" "${block}")
endforeach()

function(fail message)
  file(REMOVE "${script}" "${printed}" "${written}")
  message(FATAL_ERROR "${message}")
endfunction()

function(run_limited stdout)
  execute_process(
    COMMAND sh -c "ulimit -v ${LIMIT_KB} && exec \"$0\" \"$@\"" "${TOOL}" ${ARGN}
    RESULT_VARIABLE status
    OUTPUT_FILE "${stdout}"
    ERROR_VARIABLE err)
  if(NOT status EQUAL 0)
    fail("oet-replay ${ARGN} within ${LIMIT_KB} KB: exit status ${status}\n${err}")
  endif()
endfunction()

run_limited("${printed}" "${script}")
run_limited(/dev/null "${script}" --output "${written}")
file(SIZE "${printed}" printed_size)
file(SIZE "${written}" written_size)
math(EXPR least "${LINES} * ${NOTE_BYTES}")
if(NOT printed_size EQUAL written_size OR printed_size LESS least)
  fail("the output is cut short: ${printed_size} bytes printed, ${written_size} written, at least ${least} expected")
endif()
run_limited("${printed}" "${script}" --check "${written}")
file(READ "${printed}" checked)
if(NOT checked MATCHES "matches")
  fail("--check: ${checked}")
endif()
file(REMOVE "${script}" "${printed}" "${written}")
