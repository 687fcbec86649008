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
foreach(program orvelsuite orvelctl orveljob orvelpaint)
  run(${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen ${PREFIX}/bin/${program} --help)
  file(READ ${PREFIX}/share/man/man1/${program}.1 page)
  if(NOT output MATCHES "[Uu]sage: " OR NOT page MATCHES "${program} .- [^\n]+\n.SH SYNOPSIS\n.PP\n.B ${program} ")
    message(FATAL_ERROR "${program} has no help, or its manual page does not begin with it:\n${output}${page}")
  endif()
endforeach()
# The guide, where there is pandoc to make it: a page for a window, and what it leads to.
if(EXISTS ${BUILD}/guide/index.html)
  file(READ ${PREFIX}/share/orvelsuite/guide/windows/FOCUS.html page)
  if(NOT page MATCHES "url=../runs.html#focus-scenarios" OR NOT EXISTS ${PREFIX}/share/orvelsuite/guide/runs.html)
    message(FATAL_ERROR "The guide has no place for a window:\n${page}")
  endif()
endif()
execute_process(
  COMMAND bash -c ". share/bash-completion/completions/orvelctl
COMP_WORDS=(orvelctl plan s) COMP_CWORD=2; _orvelctl; echo \"\${COMPREPLY[*]}\"
COMP_WORDS=(orvelctl start --mode e) COMP_CWORD=3; _orvelctl; echo \"\${COMPREPLY[*]}\""
  WORKING_DIRECTORY ${PREFIX} OUTPUT_VARIABLE completed
)
if(NOT completed STREQUAL "status sweep\nefsa efsa_t4\n")
  message(FATAL_ERROR "The completion gives:\n${completed}")
endif()
# The engine is copied to where it runs, on any machine: it needs the C library alone, but under sanitizers.
execute_process(COMMAND readelf --dynamic ${PREFIX}/libexec/orvelsuite/orvel401.exe OUTPUT_VARIABLE dynamic)
string(REGEX MATCHALL "Shared library: [^\n]+" libraries "${dynamic}")
list(FILTER libraries EXCLUDE REGEX "\\[(libm|libc|ld-linux-[a-z0-9-]+)\\.so\\.[0-9]+\\]")
if(NOT dynamic MATCHES "libasan" AND (NOT dynamic MATCHES "libc.so" OR libraries))
  message(FATAL_ERROR "The engine needs more than the C library: ${libraries}\n${dynamic}")
endif()
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
# The command line alone, as on a cluster's node, tells what holds the program that it lacks.
file(COPY ${orvelctl} DESTINATION ${PREFIX}/node)
execute_process(
  COMMAND ${PREFIX}/node/orvelctl -C ${suite} report --mode focus --pesticide demo_D --crop "Winter cereals"
          --to ${PREFIX}/report.pdf
  RESULT_VARIABLE code ERROR_VARIABLE told
)
if(NOT code EQUAL 1 OR NOT told MATCHES "which is missing. The package orvelsuite holds it." OR
   EXISTS ${PREFIX}/report.pdf)
  message(FATAL_ERROR "A report without orvelpaint ended with ${code}:\n${told}")
endif()
file(REMOVE_RECURSE ${PREFIX})
