# Installs into a new prefix and does a whole assessment with what lies there: an installation, a run, its tables.
#   cmake -D BUILD=... -D PREFIX=... -P installed.cmake
file(REMOVE_RECURSE ${PREFIX})

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE code OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT code EQUAL 0)
    message(FATAL_ERROR "${ARGV}\nended with ${code}:\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX})
set(orvelctl ${PREFIX}/bin/orvelctl)
set(suite ${PREFIX}/suite)
run(${orvelctl} init ${suite})
foreach(part orvel401.exe wyear.exe wmonth.exe wday.exe)
  if(NOT EXISTS ${suite}/${part})
    message(FATAL_ERROR "The new installation has no ${part}.")
  endif()
endforeach()
run(${orvelctl} -C ${suite} mark --mode focus --pesticide demo_D.psm --crop "Winter cereals" --location "Hamburg (H)")
run(${orvelctl} -C ${suite} start --mode focus --wait)
run(${orvelctl} -C ${suite} status --mode focus)
# The line of a run that failed goes on behind its status.
if(NOT output MATCHES "Data available\n")
  message(FATAL_ERROR "The run has not finished:\n${output}")
endif()
file(REMOVE_RECURSE ${PREFIX})
