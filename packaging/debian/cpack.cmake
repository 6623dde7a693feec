# Read by cpack before it packs: the control files of the library's package, and what each package needs.
# (cpack's own way has neither a file of symbols nor a needed version of our library, and lets scripts of
# the package call ldconfig, where Debian's packages have a trigger.)
include(${CPACK_ZEL_BUILD}/binaries.cmake)
set(work ${CPACK_ZEL_BUILD}/control)
file(REMOVE_RECURSE ${work})
file(MAKE_DIRECTORY ${work}/debian)
file(TOUCH ${work}/debian/control)
set(needed "libzelconvert 1 libzelconvert1 (>= ${CPACK_PACKAGE_VERSION})\n")
file(WRITE ${work}/shlibs ${needed})
file(WRITE ${work}/triggers "activate-noawait ldconfig\n")

# Fails where the functions aren't those of the list, which is that of the last release.
execute_process(
  COMMAND dpkg-gensymbols -c4 -plibzelconvert1 -v${CPACK_PACKAGE_VERSION} -e${CPACK_ZEL_LIBRARY}
          -I${CPACK_ZEL_DEBIAN}/libzelconvert1.symbols -O${work}/symbols
  WORKING_DIRECTORY ${work} COMMAND_ERROR_IS_FATAL ANY)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA ${work}/shlibs ${work}/symbols ${work}/triggers)

while(binaries)
  list(POP_FRONT binaries component binary)
  execute_process(
    COMMAND dpkg-shlibdeps -O -L${work}/shlibs -l${CPACK_ZEL_BUILD} -e${binary}
    WORKING_DIRECTORY ${work} OUTPUT_VARIABLE depends OUTPUT_STRIP_TRAILING_WHITESPACE
    ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "^.*shlibs:Depends=" "" depends "${depends}")
  list(APPEND CPACK_DEBIAN_${component}_PACKAGE_DEPENDS "${depends}")
  list(JOIN CPACK_DEBIAN_${component}_PACKAGE_DEPENDS ", " CPACK_DEBIAN_${component}_PACKAGE_DEPENDS)
endwhile()
