# The Debian packages, for cpack (preset "debian", scripts/package.sh): each is a component of what is
# installed. A component joins in with zel_debian_package, its texts and its settings.
set(debian ${PROJECT_SOURCE_DIR}/packaging/debian)
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zelconvert)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # the packages have their own
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "zelconvert authors <zelconvert@packages.example.org>")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_COMPONENTS_ALL "")
set(full_version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})

# What the binaries need of the system, and the symbols of the library, are told as cpack begins.
set(CPACK_PROJECT_CONFIG_FILE ${debian}/cpack.cmake)
set(CPACK_ZEL_LIBRARY ${PROJECT_BINARY_DIR}/libzelconvert.so.${PROJECT_VERSION})
set(CPACK_ZEL_DEBIAN ${debian})
set(CPACK_ZEL_BINARIES "")

find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(changelog ${PROJECT_BINARY_DIR}/changelog.Debian.gz)
execute_process(
  COMMAND ${Python3_EXECUTABLE} ${debian}/changelog.py ${full_version} ${CPACK_DEBIAN_PACKAGE_MAINTAINER}
          ${changelog}
  COMMAND_ERROR_IS_FATAL ANY)
set_property(DIRECTORY ${PROJECT_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
                                                             ${PROJECT_SOURCE_DIR}/CHANGELOG.md)

# zel_debian_package(component name KEY value...): a component as the package of that name. The keys are
# those of CPACK_DEBIAN_<COMPONENT>_KEY. BINARY is a target whose needs become the package's, and which has
# been said to be installed before.
macro(zel_debian_package component name)
  cmake_parse_arguments(package "" "BINARY" "" ${ARGN})
  string(TOUPPER ${component} prefix)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  set(CPACK_DEBIAN_${prefix}_PACKAGE_NAME ${name})
  set(settings ${package_UNPARSED_ARGUMENTS})
  while(settings)
    list(POP_FRONT settings key value)
    set(CPACK_DEBIAN_${prefix}_${key} "${value}")
  endwhile()
  if(package_BINARY)
    list(APPEND CPACK_ZEL_BINARIES ${prefix} $<TARGET_FILE:${package_BINARY}>)
    set(usr "\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}")
    set(made $<TARGET_FILE_NAME:${package_BINARY}>)
    install(CODE "file(GLOB_RECURSE made \"${usr}/bin/${made}\" \"${usr}/lib/${made}\")
      execute_process(COMMAND strip -R .comment -R .note \${made} COMMAND_ERROR_IS_FATAL ANY)"
            COMPONENT ${component})
  endif()
  install(FILES ${debian}/copyright ${changelog} DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name}
          COMPONENT ${component})
  install(FILES ${debian}/${name}.lintian-overrides RENAME ${name}
          DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT ${component})
endmacro()

zel_debian_package(library libzelconvert1 BINARY zelconvert
  PACKAGE_SECTION libs PACKAGE_MULTIARCH same
  DESCRIPTION "converter for land-survey field data, shared library
Converts jobs of coordinates, raw field logs of instrument and GPS
observations, road definitions and coordinate systems between data
collectors and office programs.
.
This package has the library, eleven functions in C.")
zel_debian_package(development libzelconvert-dev
  PACKAGE_SECTION libdevel PACKAGE_MULTIARCH same
  PACKAGE_DEPENDS "libzelconvert1 (= ${full_version})"
  DESCRIPTION "converter for land-survey field data, for development
Converts jobs of coordinates, raw field logs of instrument and GPS
observations, road definitions and coordinate systems between data
collectors and office programs.
.
This package has the header, what CMake and pkg-config need to find the
library, and the sources of the class for C#.")
if(ZELCONVERT_BUILD_HOST)
  zel_debian_package(host zelconvert BINARY zelconvert-host
    PACKAGE_SECTION science
    DESCRIPTION "converter for land-survey field data
Converts jobs of coordinates, raw field logs of instrument and GPS
observations, road definitions and coordinate systems between data
collectors and office programs. Tells what files hold, draws plans of
them and compares them.
.
This package has the program, its manual page and its completions.")
endif()
if(TARGET zelconvert_gdal)
  zel_debian_package(gdal gdal-plugin-zelconvert BINARY zelconvert_gdal
    PACKAGE_SECTION science
    DESCRIPTION "converter for land-survey field data, GDAL plugin
Opens jobs of coordinates, raw field logs, data collector text and roads
as vector data sets in programs that use GDAL, such as ogr2ogr and QGIS.")
endif()
if(TARGET zelconvert_tools_library)
  # The modules with the system's library, which the wheel has inside.
  set(modules lib/python3/dist-packages)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/bindings/python/zelconvert DESTINATION ${modules}
          COMPONENT python_debian PATTERN __pycache__ EXCLUDE)
  install(TARGETS zelconvert_tools_library LIBRARY DESTINATION ${modules}/zelconvert/lib
          COMPONENT python_debian)
  file(CONFIGURE OUTPUT METADATA CONTENT "Metadata-Version: 2.1\nName: zelconvert\nVersion: @PROJECT_VERSION@\n")
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/METADATA COMPONENT python_debian
          DESTINATION ${modules}/zelconvert-${PROJECT_VERSION}.dist-info)
  set(CPACK_DEBIAN_PYTHON_DEBIAN_PACKAGE_CONTROL_EXTRA ${debian}/python3/postinst ${debian}/python3/prerm)
  zel_debian_package(python_debian python3-zelconvert BINARY zelconvert_tools_library
    PACKAGE_SECTION python
    PACKAGE_DEPENDS "python3 (>= 3.9)" PACKAGE_RECOMMENDS zelconvert PACKAGE_SUGGESTS python3-pandas
    DESCRIPTION "converter for land-survey field data, Python package
Converts jobs of coordinates, raw field logs of instrument and GPS
observations, road definitions and coordinate systems between data
collectors and office programs, and gives what they hold to Python.")
endif()

# Where the class for C# is looked for.
file(GLOB csharp ${PROJECT_SOURCE_DIR}/bindings/csharp/*.cs)
install(FILES ${csharp} DESTINATION ${CMAKE_INSTALL_DATADIR}/zelconvert/csharp COMPONENT development)
install(CODE "execute_process(COMMAND gzip -9nf
  \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_MANDIR}/man1/zelconvert.1\" COMMAND_ERROR_IS_FATAL ANY)"
        COMPONENT host)

file(GENERATE OUTPUT ${PROJECT_BINARY_DIR}/binaries.cmake
     CONTENT "set(binaries ${CPACK_ZEL_BINARIES})\n")
set(CPACK_ZEL_BUILD ${PROJECT_BINARY_DIR})
include(CPack)
