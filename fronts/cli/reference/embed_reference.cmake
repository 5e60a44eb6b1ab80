# Writes the texts of the reference as one source file, so that the command can print them without a
# file at run time: cmake -DREFERENCE=<folder> -DOUTPUT=<file> -P embed_reference.cmake
file(GLOB FILES ${REFERENCE}/*.txt ${REFERENCE}/*.md)
set(HEADER fronts/cli/pages/reference_files.h)
set(NAMESPACE kt7::cli)
set(ROW ReferenceFile)
set(FUNCTION referenceFiles)
include(${CMAKE_CURRENT_LIST_DIR}/../../../cmake/embed_files.cmake)
