# OpenCV's core and imgproc from their own development packages: the package with OpenCV's configuration file draws in
# every other module. Gives the imported targets opencv_core and opencv_imgproc.
find_path(OpenCV_INCLUDE_DIR opencv2/core.hpp PATH_SUFFIXES opencv4)
find_library(OpenCV_core_LIBRARY opencv_core)
find_library(OpenCV_imgproc_LIBRARY opencv_imgproc)

if(OpenCV_INCLUDE_DIR AND EXISTS "${OpenCV_INCLUDE_DIR}/opencv2/core/version.hpp")
  foreach(part IN ITEMS MAJOR MINOR REVISION)
    file(STRINGS "${OpenCV_INCLUDE_DIR}/opencv2/core/version.hpp" OpenCV_line REGEX "#define CV_VERSION_${part} ")
    string(REGEX MATCH "[0-9]+" OpenCV_VERSION_${part} "${OpenCV_line}")
  endforeach()
  set(OpenCV_VERSION "${OpenCV_VERSION_MAJOR}.${OpenCV_VERSION_MINOR}.${OpenCV_VERSION_REVISION}")
endif()

foreach(component IN ITEMS core imgproc)
  if(OpenCV_INCLUDE_DIR AND OpenCV_${component}_LIBRARY)
    set(OpenCV_${component}_FOUND TRUE)
    if(NOT TARGET opencv_${component})
      add_library(opencv_${component} UNKNOWN IMPORTED GLOBAL)
      set_target_properties(opencv_${component} PROPERTIES
        IMPORTED_LOCATION "${OpenCV_${component}_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${OpenCV_INCLUDE_DIR}")
    endif()
  endif()
endforeach()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(OpenCV
  REQUIRED_VARS OpenCV_INCLUDE_DIR
  VERSION_VAR OpenCV_VERSION
  HANDLE_COMPONENTS)
mark_as_advanced(OpenCV_INCLUDE_DIR OpenCV_core_LIBRARY OpenCV_imgproc_LIBRARY)
