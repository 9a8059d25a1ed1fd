# Copies each file of SRC into DST unless DST already has a file of that name.
file(GLOB_RECURSE files RELATIVE ${SRC} ${SRC}/*)
foreach(f IN LISTS files)
  if(NOT EXISTS ${DST}/${f})
    get_filename_component(dir ${DST}/${f} DIRECTORY)
    file(MAKE_DIRECTORY ${dir})
    file(COPY_FILE ${SRC}/${f} ${DST}/${f})
  endif()
endforeach()
