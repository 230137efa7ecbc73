#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace crownlab {

class FileTable;

/// Teeth in one output file of the tooth development model.
struct ModelFileCount {
    std::string File;  ///< name without its folder
    std::int32_t Count = 0;
};

/// File that is counted where a folder holds none of the model's.
inline constexpr const char* kDefaultModelFile = "netregu113.dat";

/// The model's output files in `folder`, "netregu" + digits + ".dat" without regard to case, by number.
std::vector<std::string> ListModelFiles(const std::string& folder);

/// Teeth that end with a sentinel line.
std::int32_t CountTeeth(std::string_view text);

/// Writes counts as the header "File","Count" and one record a file.
void WriteToothCounts(FileTable& files, const std::string& path, const std::vector<ModelFileCount>& counts);

/// Reads what WriteToothCounts wrote; the header may be missing. Throws what reading files and fields throws,
/// Overflow for a count beyond 32 bits, InvalidCall for a negative one, SubscriptOutOfRange if there is no
/// count at all.
std::vector<ModelFileCount> ReadToothCounts(const std::string& path);

/// How many teeth of a sample of `sampleSize` each file gives: its share of all teeth, rounded half to even,
/// and no more than it has. By the rounding the sum may differ a little from `sampleSize`. DivisionByZero if no file
/// has a tooth, InvalidCall for a negative sample size.
std::vector<std::int32_t> SampleShares(const std::vector<ModelFileCount>& counts, std::int32_t sampleSize);

/// One tooth found in a model file.
struct PickedTooth {
    std::int32_t Number = 0;              ///< of the tooth in its file, from 1
    std::int64_t FirstLine = 0;           ///< of the tooth in its file, from 1
    std::vector<std::string_view> Lines;  ///< of `text`, the sentinel line last
};

/// The teeth `numbers` (ascending, from 1) of a model file. InputPastEnd if a tooth is asked for that isn't
/// there or has no sentinel; `name` is the file's name for messages.
std::vector<PickedTooth> FindTeeth(std::string_view text, const std::vector<double>& numbers, const std::string& name);

/// Adds teeth to the end of a sample: their lines to `samplePath`, which is a multi-tooth file itself, and a
/// record to `positionPath` for each, with the name of the model file, the tooth's number in it and the
/// number of its first line there. Both files are made if missing.
void AppendToSample(FileTable& files, const std::string& modelFile, const std::vector<PickedTooth>& teeth,
                    const std::string& samplePath, const std::string& positionPath);

}  // namespace crownlab
