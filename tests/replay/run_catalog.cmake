# The event catalog is generated from the code; EXPECTED (docs/events.md) must be what the tool
# generates now. Writes the catalog into OUTPUT (in the build tree) and compares it with EXPECTED.
execute_process(
  COMMAND ${EMULATOR} "${TOOL}" --catalog --output "${OUTPUT}" --check "${EXPECTED}"
  RESULT_VARIABLE status
  OUTPUT_VARIABLE out
  ERROR_VARIABLE err)
message("${out}${err}")
if(NOT status EQUAL 0)
  message(FATAL_ERROR "docs/events.md is stale: run scripts/update-catalog (the catalog as the code gives it "
                      "now is in ${OUTPUT}).")
endif()
