# Writes the sample company's files as one source file, so that the command needs no file at run
# time: cmake -DSAMPLE=<folder> -DOUTPUT=<file> -P embed_sample.cmake
file(GLOB files ${SAMPLE}/*.csv)
list(SORT files)
set(rows "")
foreach(file IN LISTS files)
  get_filename_component(table ${file} NAME_WE)
  file(READ ${file} text)
  string(APPEND rows "    {\"${table}\", R\"kt7csv(${text})kt7csv\"},\n")
endforeach()
file(WRITE ${OUTPUT} "#include \"host/schema/sample/sample_files.h\"

namespace kt7::schema {
namespace {

constexpr SampleFile kFiles[] = {
${rows}};

}  // namespace

std::span<const SampleFile> sampleFiles() { return kFiles; }

}  // namespace kt7::schema
")
