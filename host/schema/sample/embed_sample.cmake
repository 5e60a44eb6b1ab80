# Writes the sample company's files as one source file, so that the command needs no file at run
# time: cmake -DSAMPLE=<folder> -DOUTPUT=<file> -P embed_sample.cmake
file(GLOB FILES ${SAMPLE}/*.csv)
set(HEADER host/schema/sample/sample_files.h)
set(NAMESPACE kt7::schema)
set(ROW SampleFile)
set(FUNCTION sampleFiles)
include(${CMAKE_CURRENT_LIST_DIR}/../../../cmake/embed_files.cmake)
