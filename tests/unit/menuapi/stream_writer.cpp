// Writes the fields of headers and slices in order. Repeats the codes of DC sizes, so that the
// writer does not depend on the tables under test.
#include "unit/menuapi/stream_writer.h"

#include <cstdlib>

namespace menuapi::test {

namespace {

constexpr std::array<std::string_view, 12> kLumaSizes = {
    "100",   "00",     "01",      "101",      "110",       "1110",
    "11110", "111110", "1111110", "11111110", "111111110", "111111111"};
constexpr std::array<std::string_view, 12> kChromaSizes = {
    "00",     "01",      "10",       "110",       "1110",       "11110",
    "111110", "1111110", "11111110", "111111110", "1111111110", "1111111111"};

}  // namespace

void StreamWriter::StartCode(unsigned code) {
  bits_.Align();
  bits_.Put(1, 24);
  bits_.Put(code, 8);
}

void StreamWriter::SequenceHeader() {
  StartCode(0xB3);
  bits_.Put(settings_.width, 12);
  bits_.Put(settings_.height, 12);
  bits_.Put(0x13, 8);   // square pixels, 25 pictures a second
  bits_.Put(5000, 18);  // bit rate
  bits_.Put("1");
  bits_.Put(112, 10);  // buffer size
  bits_.Put("000");
}

void StreamWriter::SequenceExtension() {
  StartCode(0xB5);
  bits_.Put(1, 4);
  bits_.Put(0x48, 8);  // main profile, main level
  bits_.Put(settings_.isProgressive ? 1 : 0, 1);
  bits_.Put(settings_.chromaFormat, 2);
  bits_.Put(settings_.sizeExtensions, 4);
  bits_.Put(1, 13);
  bits_.Put(0, 16);
}

void StreamWriter::PictureHeader(int type) {
  StartCode(0x00);
  bits_.Put(0, 10);
  bits_.Put(static_cast<unsigned>(type), 3);
  bits_.Put(0xFFFF, 16);
  if (type == kPredictedPicture) bits_.Put("0111");
  bits_.Put("0");
}

void StreamWriter::PictureCodingExtension(int structure) {
  StartCode(0xB5);
  bits_.Put(8, 4);
  for (int vector = 0; vector < 4; ++vector) bits_.Put(settings_.vectorSize, 4);
  bits_.Put("00");  // DC coefficients of 8 bits
  bits_.Put(static_cast<unsigned>(structure), 2);
  bits_.Put(structure == kFramePicture ? "1" : "0");  // top field first
  bits_.Put(settings_.isFrameDctOnly ? "1" : "0");
  bits_.Put(settings_.hasVectors ? "1" : "0");
  bits_.Put("000");  // linear scale, coefficient table zero, zigzag scan
  bits_.Put("0");    // no field repeated
  bits_.Put(settings_.isProgressive ? "11" : "00");
  bits_.Put("0");
}

void StreamWriter::MatrixExtension(unsigned weight) {
  StartCode(0xB5);
  bits_.Put(3, 4);
  bits_.Put("1");
  for (int index = 0; index < 64; ++index) bits_.Put(weight, 8);
  bits_.Put("000");
}

void StreamWriter::Headers(int structure) {
  SequenceHeader();
  SequenceExtension();
  PictureHeader(kIntraPicture);
  PictureCodingExtension(structure);
}

void StreamWriter::Slice(unsigned row, unsigned scaleCode, std::string_view information) {
  StartCode(row % 128 + 1);
  if (settings_.height > 2800) bits_.Put(row / 128, 3);
  bits_.Put(scaleCode, 5);
  bits_.Put(information);
  predictors_.fill(128);
}

void StreamWriter::Macroblock(std::string_view head, int luma, int blue, int red) {
  bits_.Put(head);
  for (int block = 0; block < 4; ++block) FlatBlock(kLumaSizes, luma, predictors_[0]);
  FlatBlock(kChromaSizes, blue, predictors_[1]);
  FlatBlock(kChromaSizes, red, predictors_[2]);
}

void StreamWriter::FlatRow(unsigned row, int luma, int blue, int red) {
  Slice(row);
  for (int column = 0; column < static_cast<int>(settings_.width + 15) / 16; ++column) {
    Macroblock("11", luma + 2 * column, blue, red);
  }
}

void StreamWriter::FlatBlock(const std::array<std::string_view, 12>& sizeCodes, int level,
                             int& predictor) {
  const int difference = level - predictor;
  predictor = level;
  int size = 0;
  while (std::abs(difference) >> size != 0) ++size;
  bits_.Put(sizeCodes.at(static_cast<std::size_t>(size)));
  const int coded = difference >= 0 ? difference : difference + (1 << size) - 1;
  bits_.Put(static_cast<unsigned>(coded), size);
  bits_.Put("10");  // end of block
}

}  // namespace menuapi::test
