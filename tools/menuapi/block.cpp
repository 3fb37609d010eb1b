// Reads a block in stream order: the DC coefficient, then the AC coefficients up to the
// end-of-block code. Then corrects the last coefficient.
#include "menuapi/block.h"

#include <algorithm>
#include <numeric>

namespace menuapi {
namespace {

constexpr int kMinCoefficient = -2048;
constexpr int kMaxCoefficient = 2047;
constexpr int kForbiddenLevel = -2048;

// A run of zero coefficients, then one with this signed level.
struct Step {
  int run = 0;
  int level = 0;
};

// Reads a difference of `bits` bits. Values below half the range are negative.
int ReadDifference(BitReader& reader, int bits) {
  if (bits == 0) return 0;
  const int value = static_cast<int>(reader.Read(bits));
  const int half = 1 << (bits - 1);
  return value >= half ? value : value + 1 - 2 * half;
}

// After an escape: a run of 6 bits and a signed level of 12 bits. Levels 0 and -2048 are forbidden.
bool ReadEscaped(BitReader& reader, Step& step) {
  step.run = static_cast<int>(reader.Read(6));
  const int level = static_cast<int>(reader.Read(12));
  step.level = level >= 2048 ? level - 4096 : level;
  return step.level != 0 && step.level != kForbiddenLevel;
}

bool ReadStep(BitReader& reader, const RunLevel& code, Step& step) {
  if (code.level == RunLevel::kEscape) return ReadEscaped(reader, step);
  step.run = code.run;
  step.level = reader.ReadFlag() ? -code.level : code.level;
  return true;
}

// Toggles the last coefficient's lowest bit if needed to make the sum odd. Without this, decoders
// that round differently would drift apart.
void ControlMismatch(Coefficients& block) {
  const int sum = std::accumulate(block.begin(), block.end(), 0);
  if (sum % 2 == 0) block.back() ^= 1;
}

}  // namespace

BlockReader::BlockReader(const Sequence& sequence, const Picture& picture)
    : codes_(CoefficientCodes(picture.coefficientTable)),
      scan_(picture.usesAlternateScan ? AlternateScan() : ZigzagScan()),
      matrix_(sequence.intraMatrix),
      dcPrecision_(picture.dcPrecision) {}

bool BlockReader::Read(BitReader& reader, const CodeTable<int>& dcSizes, int scale, int& dc,
                       Coefficients& block) const {
  block.fill(0);
  if (!ReadDc(reader, dcSizes, dc)) return false;
  block[0] = dc << (3 - dcPrecision_);
  if (!ReadAc(reader, scale, block)) return false;
  ControlMismatch(block);
  return !reader.HasPassedEnd();
}

bool BlockReader::ReadDc(BitReader& reader, const CodeTable<int>& sizes, int& dc) const {
  const int* size = sizes.Read(reader);
  if (size == nullptr) return false;
  dc += ReadDifference(reader, *size);
  return dc >= 0 && dc < 2 * InitialDc();
}

bool BlockReader::ReadAc(BitReader& reader, int scale, Coefficients& block) const {
  std::size_t index = 0;
  while (const RunLevel* code = codes_.Read(reader)) {
    if (code->level == RunLevel::kEndOfBlock) return true;
    Step step;
    if (!ReadStep(reader, *code, step)) return false;
    index += static_cast<std::size_t>(step.run) + 1;
    if (index >= block.size()) return false;
    const std::size_t position = scan_[index];
    block[position] = Dequantised(step.level, position, scale);
  }
  return false;
}

int BlockReader::Dequantised(int level, std::size_t position, int scale) const {
  return std::clamp(level * matrix_[position] * scale / 16, kMinCoefficient, kMaxCoefficient);
}

}  // namespace menuapi
