// Any stream is rejected unless it is MPEG-2 and begins with an intra coded 4:2:0 frame. If its
// size is known, the frame is filled with black.
#include <gtest/gtest.h>

#include <functional>

#include "unit/menuapi/planes.h"
#include "unit/menuapi/reference.h"
#include "unit/menuapi/stream_writer.h"

namespace menuapi::test {

namespace {

constexpr FrameSize kSize{32, 32};

// Decodes the headers and a row of slices.
Result DecodeWritten(const std::function<void(StreamWriter&)>& writeHeaders,
                     const StreamSettings& settings = {}) {
  StreamWriter stream(settings);
  writeHeaders(stream);
  stream.FlatRow(0, 50);
  stream.FlatRow(1, 50);
  Planes planes(kSize);
  const Result result = planes.Decode(stream.Bytes());
  EXPECT_EQ(planes.IsBlack(), result == Result::Rejected);
  return result;
}

Result DecodeWithSettings(const StreamSettings& settings) {
  return DecodeWritten([](StreamWriter& stream) { stream.Headers(); }, settings);
}

}  // namespace

TEST(Rejects, a_stream_without_a_sequence_header_and_leaves_the_buffer_unchanged) {
  StreamWriter complete({});
  complete.Headers();
  for (std::size_t size = 0; size < 7; ++size) {
    Planes planes(kSize);
    EXPECT_EQ(planes.Decode(std::span(complete.Bytes()).first(size)), Result::Rejected);
    EXPECT_TRUE(planes.IsUntouched()) << size;
  }
  StreamWriter withoutSequence({});
  withoutSequence.PictureHeader(kIntraPicture);
  withoutSequence.SequenceHeader();
  Planes planes(kSize);
  EXPECT_EQ(planes.Decode(withoutSequence.Bytes()), Result::Rejected);
  EXPECT_TRUE(planes.IsUntouched());
}

TEST(Rejects, a_size_without_area) {
  for (const unsigned side : {0U, 32U}) {
    StreamSettings settings;
    settings.width = side;
    settings.height = 32 - side;
    StreamWriter stream(settings);
    stream.Headers();
    FrameSize size;
    EXPECT_FALSE(ReadFrameSize(stream.Bytes(), size));
    Planes planes(kSize);
    EXPECT_EQ(planes.Decode(stream.Bytes()), Result::Rejected);
    EXPECT_TRUE(planes.IsUntouched());
  }
}

TEST(Rejects, a_buffer_that_is_too_small) {
  StreamWriter stream({});
  stream.Headers();
  stream.FlatRow(0, 50);
  std::vector<std::uint8_t> planes(PlanesBytes(kSize) - 1, kUntouched);
  EXPECT_EQ(DecodeFrame(stream.Bytes(), planes), Result::Rejected);
  EXPECT_EQ(planes.front(), kUntouched);
}

TEST(Rejects, other_chroma_formats_and_sizes_above_4095) {
  EXPECT_EQ(DecodeWithSettings({}), Result::Done);
  for (const unsigned chromaFormat : {0U, 2U, 3U}) {
    StreamSettings settings;
    settings.chromaFormat = chromaFormat;
    EXPECT_EQ(DecodeWithSettings(settings), Result::Rejected);
  }
  for (const unsigned extensions : {1U, 4U}) {
    StreamSettings settings;
    settings.sizeExtensions = extensions;
    EXPECT_EQ(DecodeWithSettings(settings), Result::Rejected);
  }
}

TEST(Rejects, streams_from_other_encoders_or_options) {
  const Reference reference;
  const auto streams = reference.Encode(
      "testsrc2=size=32x32",
      {"-c:v mpeg1video -f mpeg1video", "-pix_fmt yuv422p -c:v mpeg2video -f mpeg2video",
       "-c:v mpeg4 -f m4v", "-c:v mjpeg -f mjpeg", "-c:v mpeg2video -f mpegts",
       "-c:v mpeg2video -f mpeg", "-c:v png -f image2pipe"});
  for (const Bytes& stream : streams) {
    EXPECT_GT(stream.size(), 100U);
    Planes planes(kSize);
    EXPECT_EQ(planes.Decode(stream), Result::Rejected);
    EXPECT_TRUE(planes.IsBlack() || planes.IsUntouched());
  }
}

TEST(Rejects, a_first_picture_that_is_not_intra_coded) {
  for (const int type : {0, 2, 3, 4, 7}) {
    EXPECT_EQ(DecodeWritten([type](StreamWriter& stream) {
                stream.SequenceHeader();
                stream.SequenceExtension();
                stream.PictureHeader(type);
                stream.PictureCodingExtension(kFramePicture);
              }),
              Result::Rejected);
  }
}

TEST(Rejects, headers_that_are_missing_or_out_of_order) {
  const std::function<void(StreamWriter&)> cases[] = {
      [](StreamWriter& stream) { stream.SequenceHeader(); },
      [](StreamWriter& stream) {
        stream.SequenceHeader();
        stream.SequenceExtension();
      },
      [](StreamWriter& stream) {
        stream.SequenceHeader();
        stream.PictureHeader(kIntraPicture);
        stream.PictureCodingExtension(kFramePicture);
      },
      [](StreamWriter& stream) {
        stream.SequenceHeader();
        stream.SequenceExtension();
        stream.PictureHeader(kIntraPicture);
      },
      [](StreamWriter& stream) {
        stream.SequenceHeader();
        stream.SequenceExtension();
        stream.PictureCodingExtension(kFramePicture);
      },
      [](StreamWriter& stream) {
        stream.Headers();
        stream.SequenceExtension();
      },
      [](StreamWriter& stream) {
        stream.SequenceHeader();
        stream.SequenceExtension();
        stream.SequenceExtension();
        stream.PictureHeader(kIntraPicture);
        stream.PictureCodingExtension(kFramePicture);
      },
      [](StreamWriter& stream) {
        stream.SequenceHeader();
        stream.SequenceExtension();
        stream.MatrixExtension(16);
        stream.PictureHeader(kIntraPicture);
        stream.PictureCodingExtension(kFramePicture);
      },
      [](StreamWriter& stream) {
        stream.Headers();
        stream.StartCode(0xB7);
      },
  };
  for (const auto& writeHeaders : cases) {
    EXPECT_EQ(DecodeWritten(writeHeaders), Result::Rejected) << (&writeHeaders - cases);
  }
}

TEST(Rejects, a_second_sequence_header_with_another_size) {
  StreamSettings larger;
  larger.width = 64;
  larger.height = 64;
  StreamWriter second(larger);
  second.Headers();
  second.FlatRow(0, 50);
  StreamWriter first({});
  first.SequenceHeader();
  first.SequenceExtension();
  std::vector<std::uint8_t> both = first.Bytes();
  both.insert(both.end(), second.Bytes().begin(), second.Bytes().end());
  Planes planes(kSize);
  EXPECT_EQ(planes.Decode(both), Result::Rejected);
  EXPECT_TRUE(planes.IsBlack());
}

TEST(Rejects, scalable_streams) {
  EXPECT_EQ(DecodeWritten([](StreamWriter& stream) {
              stream.SequenceHeader();
              stream.SequenceExtension();
              stream.StartCode(0xB5);
              stream.Bits().Put(0x5000, 16);
              stream.PictureHeader(kIntraPicture);
              stream.PictureCodingExtension(kFramePicture);
            }),
            Result::Rejected);
}

TEST(Rejects, headers_that_contradict_themselves) {
  // Fields of a progressive sequence.
  for (const int structure : {kTopField, kBottomField}) {
    EXPECT_EQ(DecodeWritten([structure](StreamWriter& stream) { stream.Headers(structure); }),
              Result::Rejected);
  }
  // A picture that is neither field nor frame.
  StreamSettings interlaced;
  interlaced.isProgressive = false;
  EXPECT_EQ(DecodeWritten([](StreamWriter& stream) { stream.Headers(0); }, interlaced),
            Result::Rejected);
  // Vectors whose size is invalid.
  for (const unsigned size : {0U, 10U, 15U}) {
    StreamSettings settings;
    settings.hasVectors = true;
    settings.vectorSize = size;
    EXPECT_EQ(DecodeWithSettings(settings), Result::Rejected) << size;
  }
  // A matrix with a weight of 0.
  EXPECT_EQ(DecodeWritten([](StreamWriter& stream) {
              stream.Headers();
              stream.MatrixExtension(0);
            }),
            Result::Rejected);
}

}  // namespace menuapi::test
