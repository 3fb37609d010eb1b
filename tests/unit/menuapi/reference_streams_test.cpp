// Compares this decoder with ffmpeg on streams that ffmpeg encodes. Frames may differ by at most 2
// levels, and in few samples, because both use the same formula.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "menuapi/header_reader.h"
#include "unit/menuapi/planes.h"
#include "unit/menuapi/reference.h"

namespace menuapi::test {

namespace {

constexpr int kLargestDifference = 2;
constexpr std::size_t kSamplesPerDifference = 1000;

// A test pattern with noise, so that all kinds of coefficients occur.
std::string Source(FrameSize size) {
  return "testsrc2=size=" + std::to_string(size.width) + "x" + std::to_string(size.height) +
         ",noise=alls=50:all_seed=7";
}

// Alternate lines show different moments.
std::string InterlacedSource(FrameSize size) {
  return "mandelbrot=size=" + std::to_string(size.width) + "x" + std::to_string(size.height) +
         ":rate=50:end_scale=0.03:end_pts=8,noise=alls=20:all_seed=7,tinterlace=interleave_top";
}

void ExpectSame(const Bytes& stream, const Bytes& reference, const std::string& name) {
  FrameSize size;
  ASSERT_TRUE(ReadFrameSize(stream, size)) << name;
  Planes planes(size);
  EXPECT_EQ(planes.Decode(stream), Result::Done) << name;
  const Difference difference = Compare(size, reference, planes.Bytes());
  EXPECT_LE(difference.largest, kLargestDifference) << name;
  EXPECT_LE(difference.count, reference.size() / kSamplesPerDifference) << name;
}

// Encodes a source with each set of options and compares the decoded frames. Returns the streams.
std::vector<Bytes> ExpectSameFrames(const std::string& source,
                                    const std::vector<std::string>& options) {
  const Reference reference;
  std::vector<Bytes> streams = reference.Encode(source, options);
  const std::vector<Bytes> frames = reference.Decode(streams);
  for (std::size_t index = 0; index < options.size(); ++index) {
    ExpectSame(streams[index], frames[index], source + " " + options[index]);
  }
  return streams;
}

// The values in the headers of the first picture.
Picture PictureOf(const Bytes& stream) {
  StartCodes units(stream);
  HeaderReader headers;
  EXPECT_TRUE(headers.ReadToSlices(units));
  return headers.CurrentPicture();
}

}  // namespace

TEST(ReferenceStreams, of_even_sizes_are_decoded_alike) {
  for (const FrameSize size :
       {FrameSize{16, 16}, FrameSize{64, 48}, FrameSize{18, 34}, FrameSize{50, 14}, FrameSize{2, 2},
        FrameSize{352, 288}, FrameSize{720, 576}, FrameSize{4094, 30}, FrameSize{30, 4094}}) {
    const Bytes stream = ExpectSameFrames(Source(size), {"-qscale:v 3"}).front();
    FrameSize read;
    EXPECT_TRUE(ReadFrameSize(stream, read));
    EXPECT_EQ(read, size);
  }
}

TEST(ReferenceStreams, of_odd_sizes_are_decoded_alike) {
  const Reference reference;
  Bytes stream = reference.Encode(Source({64, 48}), "-qscale:v 3");
  stream[4] = 0x03;  // 63 x 47 has as many macroblocks as 64 x 48
  stream[5] = 0xF0;
  stream[6] = 0x2F;
  ExpectSame(stream, reference.Decode(stream), "63 x 47");
}

TEST(ReferenceStreams, of_every_linear_quantiser_scale_are_decoded_alike) {
  std::vector<std::string> options;
  for (int scale = 1; scale <= 31; ++scale) {
    options.push_back("-qmin 1 -qscale:v " + std::to_string(scale));
  }
  ExpectSameFrames(Source({112, 80}), options);
}

TEST(ReferenceStreams, of_non_linear_quantiser_scales_are_decoded_alike) {
  std::vector<std::string> options;
  for (int scale = 1; scale <= 28; ++scale) {
    options.push_back("-qmin 1 -qmax 28 -non_linear_quant 1 -qscale:v " + std::to_string(scale));
  }
  const auto streams = ExpectSameFrames(Source({112, 80}), options);
  EXPECT_EQ(PictureOf(streams.front()).scaleType, ScaleType::NonLinear);
}

TEST(ReferenceStreams, with_a_quantiser_scale_per_macroblock_are_decoded_alike) {
  ExpectSameFrames(Source({352, 288}), {"-b:v 3M -mbd rd -lumi_mask 0.3 -scplx_mask 0.3",
                                        "-b:v 500k -qmin 1 -qmax 31 -lumi_mask 0.5"});
}

TEST(ReferenceStreams, of_both_coefficient_tables_are_decoded_alike) {
  const auto streams = ExpectSameFrames(Source({352, 288}), {"-qscale:v 1 -qmin 1 -intra_vlc 0",
                                                             "-qscale:v 1 -qmin 1 -intra_vlc 1",
                                                             "-qscale:v 6 -intra_vlc 1"});
  EXPECT_EQ(PictureOf(streams[0]).coefficientTable, CoefficientTable::Zero);
  EXPECT_EQ(PictureOf(streams[1]).coefficientTable, CoefficientTable::One);
}

TEST(ReferenceStreams, of_both_scans_are_decoded_alike) {
  const auto streams = ExpectSameFrames(
      Source({352, 288}), {"-qscale:v 4 -alternate_scan 0", "-qscale:v 4 -alternate_scan 1"});
  EXPECT_FALSE(PictureOf(streams[0]).usesAlternateScan);
  EXPECT_TRUE(PictureOf(streams[1]).usesAlternateScan);
}

TEST(ReferenceStreams, of_every_dc_precision_are_decoded_alike) {
  const auto streams =
      ExpectSameFrames(Source({176, 144}), {"-qscale:v 5 -dc 8", "-qscale:v 5 -dc 9",
                                            "-qscale:v 5 -dc 10", "-qscale:v 5 -dc 11"});
  for (int extra = 0; extra < 4; ++extra) {
    EXPECT_EQ(PictureOf(streams[static_cast<std::size_t>(extra)]).dcPrecision, extra);
  }
}

TEST(ReferenceStreams, of_interlaced_frames_are_decoded_alike) {
  const auto streams = ExpectSameFrames(
      InterlacedSource({352, 288}),
      {"-qscale:v 2 -flags +ildct+ilme", "-qscale:v 2 -flags +ildct+ilme -alternate_scan 1",
       "-qscale:v 3 -qmax 28 -flags +ildct+ilme -alternate_scan 1 -intra_vlc 1 "
       "-non_linear_quant 1 -dc 10 -aspect 16:9"});
  for (const Bytes& stream : streams) EXPECT_TRUE(PictureOf(stream).hasDctTypes);
}

// A progressive sequence has rows of 16 lines, an interlaced one pairs of such rows.
TEST(ReferenceStreams, of_interlaced_frames_of_any_height_are_decoded_alike) {
  for (const int height : {16, 34, 48, 60}) {
    ExpectSameFrames(InterlacedSource({64, height}), {"-qscale:v 2 -flags +ildct+ilme"});
  }
}

TEST(ReferenceStreams, with_their_own_matrix_are_decoded_alike) {
  std::string rising = "8";
  std::string falling = "8";
  for (int i = 1; i < 64; ++i) {
    rising += "," + std::to_string(4 + 3 * i);
    falling += "," + std::to_string(200 - 3 * i);
  }
  const auto streams = ExpectSameFrames(Source({176, 144}),
                                        {"-qscale:v 2 -intra_matrix " + rising,
                                         "-qscale:v 2 -alternate_scan 1 -intra_matrix " + falling});
  StartCodes units(streams[0]);
  HeaderReader headers;
  ASSERT_TRUE(headers.ReadToSlices(units));
  EXPECT_EQ(headers.CurrentSequence().intraMatrix[63], 4 + 3 * 63);
}

TEST(ReferenceStreams, of_flat_and_of_extreme_colours_are_decoded_alike) {
  for (const char* source :
       {"color=black:size=64x48", "color=white:size=64x48", "color=red:size=64x48",
        "nullsrc=size=64x48,geq=lum='255*mod(X+Y,2)':cb='255*mod(X,2)':cr='255*mod(Y,2)'",
        "nullsrc=size=64x48,geq=lum='255*gt(random(1),0.5)':cb='255*random(2)':cr=0"}) {
    ExpectSameFrames(source, {"-qmin 1 -qscale:v 1", "-qscale:v 31"});
  }
}

TEST(ReferenceStreams, of_two_frames_yield_the_first) {
  const Reference reference;
  const Bytes first = reference.Encode(Source({64, 48}), "-qscale:v 3");
  const Bytes second = reference.Encode("color=red:size=64x48", "-qscale:v 3");
  Bytes both = first;
  both.insert(both.end(), second.begin(), second.end());
  ExpectSame(both, reference.Decode(first), "two frames");
}

}  // namespace menuapi::test
