# Runs one fuzz target for SECONDS over a scratch corpus seeded from SEEDS.
file(MAKE_DIRECTORY ${CORPUS})
file(GLOB seeds ${SEEDS}/*)
if(seeds)
  file(COPY ${seeds} DESTINATION ${CORPUS})
endif()
execute_process(
  COMMAND ${FUZZER} -max_total_time=${SECONDS} -timeout=10 -rss_limit_mb=2048
          -max_len=65536 -print_final_stats=1 ${CORPUS}
  RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "fuzzer ${FUZZER} failed with ${status}")
endif()
