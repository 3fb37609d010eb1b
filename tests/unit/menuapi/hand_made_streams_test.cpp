// Valid streams that ffmpeg does not write: field pictures, vectors in intra pictures, slices that
// begin anywhere, and matrices for a single picture. Most are also decoded with ffmpeg and
// compared.
#include <gtest/gtest.h>

#include "unit/menuapi/planes.h"
#include "unit/menuapi/reference.h"
#include "unit/menuapi/stream_writer.h"

namespace menuapi::test {

namespace {

FrameSize SizeOf(const StreamSettings& settings) {
  return {static_cast<int>(settings.width), static_cast<int>(settings.height)};
}

void ExpectReferenceAgrees(const StreamWriter& stream, const Planes& planes) {
  const Bytes reference = Reference().Decode(stream.Bytes());
  EXPECT_EQ(Compare(planes.Size(), reference, planes.Bytes()).largest, 0);
}

StreamSettings Interlaced() {
  StreamSettings settings;
  settings.isProgressive = false;
  settings.isFrameDctOnly = false;
  return settings;
}

void WriteField(StreamWriter& stream, int structure, int luma, int blue) {
  stream.PictureHeader(kIntraPicture);
  stream.PictureCodingExtension(structure);
  stream.FlatRow(0, luma, blue, 90);
}

}  // namespace

TEST(HandMadeStream, of_flat_macroblocks_is_decoded_exactly) {
  const StreamSettings settings;
  StreamWriter stream(settings);
  stream.Headers();
  stream.FlatRow(0, 40, 100, 200);
  stream.FlatRow(1, 80, 150, 50);
  Planes planes(SizeOf(settings));
  ASSERT_EQ(planes.Decode(stream.Bytes()), Result::Done);
  EXPECT_EQ(planes.Luma(15, 15), 40);
  EXPECT_EQ(planes.Luma(16, 0), 42);
  EXPECT_EQ(planes.Luma(0, 16), 80);
  EXPECT_EQ(planes.Blue(15, 7), 100);
  EXPECT_EQ(planes.Red(0, 8), 50);
  ExpectReferenceAgrees(stream, planes);
}

TEST(HandMadeStream, of_two_intra_coded_fields_is_interleaved_in_either_order) {
  for (const int first : {kTopField, kBottomField}) {
    const StreamSettings settings = Interlaced();
    StreamWriter stream(settings);
    stream.SequenceHeader();
    stream.SequenceExtension();
    WriteField(stream, first, 40, 100);
    WriteField(stream, kTopField + kBottomField - first, 200, 140);
    Planes planes(SizeOf(settings));
    ASSERT_EQ(planes.Decode(stream.Bytes()), Result::Done);
    const int top = first == kTopField ? 40 : 200;
    for (int line = 0; line < 32; ++line) {
      EXPECT_EQ(planes.Luma(0, line), line % 2 == 0 ? top : 240 - top) << line;
      EXPECT_EQ(planes.Luma(31, line), (line % 2 == 0 ? top : 240 - top) + 2) << line;
    }
    EXPECT_EQ(planes.Blue(0, 0), top == 40 ? 100 : 140);
    EXPECT_EQ(planes.Blue(0, 1), top == 40 ? 140 : 100);
    ExpectReferenceAgrees(stream, planes);
  }
}

// The second field is missing, predicted from the first, the same field again, or a whole frame.
TEST(HandMadeStream, of_one_decodable_field_has_its_lines_doubled) {
  const StreamSettings settings = Interlaced();
  for (const int first : {kTopField, kBottomField}) {
    for (int second = 0; second < 4; ++second) {
      StreamWriter stream(settings);
      stream.Headers(first);
      stream.FlatRow(0, 40, 100, 200);
      if (second == 1) stream.PictureHeader(kPredictedPicture);
      if (second == 1) stream.PictureCodingExtension(kTopField + kBottomField - first);
      if (second == 2) WriteField(stream, first, 200, 10);
      if (second == 3) WriteField(stream, kFramePicture, 200, 10);
      Planes planes(SizeOf(settings));
      ASSERT_EQ(planes.Decode(stream.Bytes()), Result::Done) << second;
      for (int line = 0; line < 32; ++line) EXPECT_EQ(planes.Luma(0, line), 40) << line;
      for (int line = 0; line < 16; ++line) EXPECT_EQ(planes.Red(15, line), 200) << line;
    }
  }
}

// One field has only its first macroblock.
TEST(HandMadeStream, with_one_damaged_field_keeps_the_other) {
  const StreamSettings settings = Interlaced();
  for (const int damaged : {kTopField, kBottomField}) {
    StreamWriter stream(settings);
    stream.SequenceHeader();
    stream.SequenceExtension();
    for (const int field : {kTopField, kBottomField}) {
      if (field != damaged) {
        WriteField(stream, field, 40, 100);
        continue;
      }
      stream.PictureHeader(kIntraPicture);
      stream.PictureCodingExtension(field);
      stream.Slice(0);
      stream.Macroblock("11", 200, 128, 128);
    }
    Planes planes(SizeOf(settings));
    EXPECT_EQ(planes.Decode(stream.Bytes()), Result::Damaged);
    const int damagedLine = damaged == kTopField ? 0 : 1;
    EXPECT_EQ(planes.Luma(0, 1 - damagedLine), 40);
    EXPECT_EQ(planes.Luma(0, damagedLine), 200);
    EXPECT_EQ(planes.Luma(16, 1 - damagedLine), 42);
    EXPECT_EQ(planes.Luma(16, damagedLine), 16);
  }
}

TEST(HandMadeStream, may_choose_frame_or_field_dct_for_each_macroblock) {
  StreamSettings settings = Interlaced();
  settings.width = 16;
  StreamWriter stream(settings);
  stream.Headers();
  stream.Slice(0);
  stream.Macroblock("110", 60, 128, 128);
  stream.Slice(1);
  stream.Macroblock("111", 90, 128, 128);
  Planes planes(SizeOf(settings));
  ASSERT_EQ(planes.Decode(stream.Bytes()), Result::Done);
  EXPECT_EQ(planes.Luma(0, 15), 60);
  EXPECT_EQ(planes.Luma(0, 16), 90);
  ExpectReferenceAgrees(stream, planes);
}

// Rows come in pairs, so that each field has whole macroblocks. The last row of this frame is below
// the visible picture.
TEST(HandMadeStream, of_an_interlaced_sequence_has_an_even_number_of_rows) {
  StreamSettings settings = Interlaced();
  settings.isFrameDctOnly = true;
  settings.height = 48;
  StreamWriter stream(settings);
  stream.Headers();
  for (unsigned row = 0; row < 3; ++row) stream.FlatRow(row, 70);
  Planes planes(SizeOf(settings));
  EXPECT_EQ(planes.Decode(stream.Bytes()), Result::Damaged);
  stream.FlatRow(3, 70);
  EXPECT_EQ(planes.Decode(stream.Bytes()), Result::Done);
}

TEST(HandMadeStream, with_concealment_vectors_is_decoded_as_without_them) {
  // Horizontally: no step, then a step of -5 with two more bits. Vertically: a step of 16, then
  // none.
  StreamSettings settings;
  settings.height = 16;
  settings.hasVectors = true;
  settings.vectorSize = 3;
  StreamWriter stream(settings);
  stream.Headers();
  stream.Slice(0);
  stream.Macroblock("11 1 0000001100 0 11 1", 50, 128, 128);
  stream.Macroblock("11 00001011 01 1 1", 70, 90, 128);
  Planes planes(SizeOf(settings));
  ASSERT_EQ(planes.Decode(stream.Bytes()), Result::Done);
  EXPECT_EQ(planes.Luma(0, 0), 50);
  EXPECT_EQ(planes.Luma(16, 0), 70);
  EXPECT_EQ(planes.Blue(8, 0), 90);
  ExpectReferenceAgrees(stream, planes);
}

TEST(HandMadeStream, of_fields_with_concealment_vectors_has_a_field_selection_bit) {
  StreamSettings settings = Interlaced();
  settings.width = 16;
  settings.hasVectors = true;
  settings.vectorSize = 1;  // no more bits after the code
  StreamWriter stream(settings);
  stream.SequenceHeader();
  stream.SequenceExtension();
  for (const int field : {kTopField, kBottomField}) {
    stream.PictureHeader(kIntraPicture);
    stream.PictureCodingExtension(field);
    stream.Slice(0);
    stream.Macroblock("11 1 010 0010 1", 30 * field, 128, 128);
  }
  Planes planes(SizeOf(settings));
  ASSERT_EQ(planes.Decode(stream.Bytes()), Result::Done);
  EXPECT_EQ(planes.Luma(0, 0), 30);
  EXPECT_EQ(planes.Luma(0, 1), 60);
  ExpectReferenceAgrees(stream, planes);
}

TEST(HandMadeStream, may_begin_slices_within_a_row) {
  StreamSettings settings;
  settings.width = 1184;  // 74 macroblocks
  settings.height = 16;
  StreamWriter stream(settings);
  stream.Headers();
  stream.Slice(0);
  for (int column = 0; column < 3; ++column) stream.Macroblock("11", 50, 128, 128);
  stream.Slice(0);
  stream.Macroblock("0011 1", 60, 128, 128);  // the fourth
  for (int column = 4; column < 70; ++column) stream.Macroblock("11", 60, 128, 128);
  stream.Slice(0);  // 33 + 33 + 5: the seventy-first
  stream.Macroblock("00000001000 00000001000 0010 1", 70, 128, 128);
  for (int column = 71; column < 74; ++column) stream.Macroblock("11", 80, 128, 128);
  Planes planes(SizeOf(settings));
  ASSERT_EQ(planes.Decode(stream.Bytes()), Result::Done);
  EXPECT_EQ(planes.Luma(3 * 16 - 1, 0), 50);
  EXPECT_EQ(planes.Luma(3 * 16, 0), 60);
  EXPECT_EQ(planes.Luma(70 * 16 - 1, 0), 60);
  EXPECT_EQ(planes.Luma(70 * 16, 0), 70);
  EXPECT_EQ(planes.Luma(71 * 16, 0), 80);
  ExpectReferenceAgrees(stream, planes);
}

TEST(HandMadeStream, may_have_extra_information_in_slices) {
  StreamSettings settings;
  settings.height = 16;
  StreamWriter stream(settings);
  stream.Headers();
  stream.Slice(0, 5, "1 10000001 1 01010101 0");
  stream.Macroblock("11", 50, 128, 128);
  stream.Macroblock("11", 60, 128, 128);
  Planes planes(SizeOf(settings));
  ASSERT_EQ(planes.Decode(stream.Bytes()), Result::Done);
  EXPECT_EQ(planes.Luma(0, 0), 50);
  EXPECT_EQ(planes.Luma(16, 0), 60);
}

TEST(HandMadeStream, of_more_than_2800_lines_has_three_more_bits_for_the_row) {
  StreamSettings settings;
  settings.width = 16;
  settings.height = 2816;
  StreamWriter stream(settings);
  stream.Headers();
  for (unsigned row = 0; row < 176; ++row) stream.FlatRow(row, 30 + static_cast<int>(row));
  Planes planes(SizeOf(settings));
  ASSERT_EQ(planes.Decode(stream.Bytes()), Result::Done);
  for (int row = 0; row < 176; ++row) EXPECT_EQ(planes.Luma(0, 16 * row), 30 + row);
  ExpectReferenceAgrees(stream, planes);
}

TEST(HandMadeStream, may_have_a_matrix_for_one_picture) {
  // One coefficient of level 1 at the second position; the matrix and the scale decide its value.
  StreamSettings settings;
  settings.width = 16;
  settings.height = 16;
  StreamWriter stream(settings);
  stream.Headers();
  stream.MatrixExtension(100);
  stream.Slice(0, 10);
  stream.Bits().Put("11");
  for (int block = 0; block < 4; ++block) stream.Bits().Put("100 110 10");
  stream.Bits().Put("0010 0010");
  Planes planes(SizeOf(settings));
  ASSERT_EQ(planes.Decode(stream.Bytes()), Result::Done);
  // The coefficient is 1 x 100 x 20 / 16 = 125. At the corner it adds 125 / 4 x cos(pi / 16) /
  // sqrt(2) = 21.7.
  EXPECT_EQ(planes.Luma(0, 0), 128 + 22);
  EXPECT_EQ(planes.Luma(7, 7), 128 - 22);
  ExpectReferenceAgrees(stream, planes);
}

TEST(HandMadeStream, may_repeat_its_headers_with_others_between_them) {
  StreamSettings settings;
  settings.width = 16;
  settings.height = 16;
  StreamWriter stream(settings);
  stream.SequenceHeader();
  stream.SequenceExtension();
  stream.StartCode(0xB2);  // user data
  stream.Bits().Put("0100000101000010");
  stream.SequenceHeader();
  stream.SequenceExtension();
  stream.StartCode(0xB5);  // display extension
  stream.Bits().Put(0x23, 8);
  stream.Bits().Put(0x05050516, 32);
  stream.StartCode(0xB8);  // group of pictures
  stream.Bits().Put(0x00080040, 32);
  stream.PictureHeader(kIntraPicture);
  stream.PictureCodingExtension(kFramePicture);
  stream.FlatRow(0, 99);
  stream.StartCode(0xB7);
  Planes planes(SizeOf(settings));
  ASSERT_EQ(planes.Decode(stream.Bytes()), Result::Done);
  EXPECT_EQ(planes.Luma(0, 0), 99);
}

}  // namespace menuapi::test
