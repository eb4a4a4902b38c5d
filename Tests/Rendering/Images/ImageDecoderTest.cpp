// Picture files that are damaged or cost more than they show. The libraries make them here.
#include <gtest/gtest.h>
#include <png.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "Rendering/Images/ImageDecoder.hpp"

// Uses the standard headers above without naming them.
#include <jpeglib.h>

namespace rendering {
namespace {

constexpr Size kWanted{170, 170};

struct JpegForm {
  int width = 64;
  int height = 64;
  int channels = 3;
  bool isProgressive = false;
  std::vector<jpeg_scan_info> scans;
};

std::string jpeg(const JpegForm& form) {
  jpeg_compress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&info, &bytes, &size);
  info.image_width = static_cast<JDIMENSION>(form.width);
  info.image_height = static_cast<JDIMENSION>(form.height);
  info.input_components = form.channels;
  info.in_color_space = form.channels == 4 ? JCS_CMYK : JCS_RGB;
  jpeg_set_defaults(&info);
  if (form.isProgressive) jpeg_simple_progression(&info);
  if (!form.scans.empty()) {
    info.scan_info = form.scans.data();
    info.num_scans = static_cast<int>(form.scans.size());
  }
  jpeg_start_compress(&info, TRUE);
  std::vector<unsigned char> row(static_cast<std::size_t>(form.width * form.channels));
  while (info.next_scanline < info.image_height) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      row[i] = static_cast<unsigned char>(i * 7 + info.next_scanline * 3);
    }
    JSAMPROW rows[1] = {row.data()};
    jpeg_write_scanlines(&info, rows, 1);
  }
  jpeg_finish_compress(&info);
  std::string out(reinterpret_cast<const char*>(bytes), size);
  jpeg_destroy_compress(&info);
  std::free(bytes);
  return out;
}

/// Each coefficient of each channel, bit by bit: about two thousand scans without a fault.
std::vector<jpeg_scan_info> everyBitOnItsOwn() {
  std::vector<jpeg_scan_info> scans{{3, {0, 1, 2, 0}, 0, 0, 0, 0}};
  for (int channel = 0; channel < 3; ++channel) {
    for (int coefficient = 1; coefficient <= 63; ++coefficient) {
      scans.push_back({1, {channel, 0, 0, 0}, coefficient, coefficient, 0, 10});
      for (int bit = 10; bit > 0; --bit) {
        scans.push_back({1, {channel, 0, 0, 0}, coefficient, coefficient, bit, bit - 1});
      }
    }
  }
  return scans;
}

struct PngForm {
  int width = 32;
  int height = 32;
  bool hasText = false;     ///< a compressed megabyte
  bool hasProfile = false;  ///< a colour profile of garbage
  bool isInterlaced = false;
};

std::string png(const PngForm& form) {
  std::string out;
  png_structp writer = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png_create_info_struct(writer);
  png_set_write_fn(
      writer,
      &out,
      [](png_structp w, png_bytep bytes, png_size_t size) {
        static_cast<std::string*>(png_get_io_ptr(w))
            ->append(reinterpret_cast<const char*>(bytes), size);
      },
      nullptr);
  png_set_IHDR(writer,
               info,
               static_cast<png_uint_32>(form.width),
               static_cast<png_uint_32>(form.height),
               8,
               PNG_COLOR_TYPE_RGBA,
               form.isInterlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
               PNG_COMPRESSION_TYPE_DEFAULT,
               PNG_FILTER_TYPE_DEFAULT);
  std::string text(1 << 20, 'a');
  std::string key = "Comment";
  if (form.hasText) {
    png_text entry{};
    entry.compression = PNG_TEXT_COMPRESSION_zTXt;
    entry.key = key.data();
    entry.text = text.data();
    entry.text_length = text.size();
    png_set_text(writer, info, &entry, 1);
  }
  png_set_compression_level(writer, 1);
  png_set_filter(writer, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
  png_write_info(writer, info);
  if (form.hasProfile) {
    // A name, the method, and no deflate stream.
    constexpr std::string_view kBody("p\0\0garbage", 10);
    png_write_chunk(writer,
                    reinterpret_cast<png_const_bytep>("iCCP"),
                    reinterpret_cast<png_const_bytep>(kBody.data()),
                    kBody.size());
  }
  const int passes = png_set_interlace_handling(writer);
  std::vector<png_byte> row(static_cast<std::size_t>(form.width) * 4, 200);
  for (int pass = 0; pass < passes; ++pass) {
    for (int y = 0; y < form.height; ++y) png_write_row(writer, row.data());
  }
  png_write_end(writer, nullptr);
  png_destroy_write_struct(&writer, &info);
  return out;
}

/// Milliseconds that decoding takes, well or not.
double timeOf(const std::string& file) {
  const auto start = std::chrono::steady_clock::now();
  static_cast<void>(decodeImage(file, kWanted));
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

TEST(ImageDecoder, WholePicturesOfEachKindAreRead) {
  for (const int channels : {3, 4}) {
    for (const bool isProgressive : {false, true}) {
      const auto image =
          decodeImage(jpeg({.channels = channels, .isProgressive = isProgressive}), kWanted);
      ASSERT_TRUE(image) << channels << isProgressive;
      EXPECT_EQ(image->width, 64);
    }
  }
  for (const bool isInterlaced : {false, true}) {
    EXPECT_TRUE(decodeImage(png({.isInterlaced = isInterlaced}), kWanted)) << isInterlaced;
  }
}

TEST(ImageDecoder, AFileThatIsCutAnywhereIsNoPicture) {
  for (const std::string& whole :
       {jpeg({}), jpeg({.isProgressive = true}), png({}), png({.isInterlaced = true})}) {
    for (std::size_t size = 0; size < whole.size(); size += 1 + whole.size() / 200) {
      EXPECT_FALSE(decodeImage(whole.substr(0, size), kWanted)) << size << " of " << whole.size();
    }
    EXPECT_FALSE(decodeImage(whole.substr(0, whole.size() - 1), kWanted));
  }
}

TEST(ImageDecoder, WhatTheDecoderWarnsOfIsDamage) {
  std::string file = jpeg({.width = 256, .height = 256});
  file.replace(file.size() / 2, 4, "\xFF\xD3\xFF\xD4");  // restart marks where none belong
  EXPECT_FALSE(decodeImage(file, kWanted));
}

TEST(ImageDecoder, ThousandsOfScansAreRefusedSoon) {
  const std::string file =
      jpeg({.width = 512, .height = 512, .isProgressive = true, .scans = everyBitOnItsOwn()});
  EXPECT_FALSE(decodeImage(file, kWanted));
  EXPECT_LT(timeOf(file), 500);
}

TEST(ImageDecoder, AHundredScansAreStillRead) {
  auto scans = everyBitOnItsOwn();
  scans.resize(100);
  EXPECT_TRUE(decodeImage(jpeg({.isProgressive = true, .scans = scans}), kWanted));
  scans = everyBitOnItsOwn();
  scans.resize(101);
  EXPECT_FALSE(decodeImage(jpeg({.isProgressive = true, .scans = scans}), kWanted));
}

/// The same file with another size in its frame header.
std::string withSize(std::string file, int width, int height) {
  const std::size_t frame = file.find("\xFF\xC2");
  const auto put = [&](std::size_t at, int value) {
    file[at] = static_cast<char>(value >> 8);
    file[at + 1] = static_cast<char>(value);
  };
  put(frame + 5, height);
  put(frame + 7, width);
  return file;
}

TEST(ImageDecoder, LargeProgressivePicturesAreRefusedBeforeTheyAreHeld) {
  const std::string file = withSize(jpeg({.channels = 4, .isProgressive = true}), 16000, 3000);
  EXPECT_FALSE(decodeImage(file, kWanted));
  EXPECT_LT(timeOf(file), 20);
  // Row by row they are read.
  EXPECT_TRUE(decodeImage(jpeg({.width = 16000, .height = 1001}), kWanted));
}

TEST(ImageDecoder, LargeInterlacedPicturesAreRefused) {
  EXPECT_FALSE(decodeImage(png({.width = 4001, .height = 4000, .isInterlaced = true}), kWanted));
}

TEST(ImageDecoder, CompressedTextsAreNotRead) {
  std::string file = png({.hasText = true});
  const std::size_t chunk = file.find("zTXt") - 4;
  const std::string text = file.substr(chunk, file.find("IDAT") - 4 - chunk);
  for (int i = 1; i < 900; ++i) file.insert(chunk, text);
  EXPECT_TRUE(decodeImage(file, kWanted));
  EXPECT_LT(timeOf(file), 500);
}

TEST(ImageDecoder, AWrongColourProfileIsNoDamage) {
  EXPECT_TRUE(decodeImage(png({.hasProfile = true}), kWanted));
}

TEST(ImageDecoder, MillionsOfEmptySegmentsTakeLittleTime) {
  std::string file = jpeg({});
  std::string comments;
  while (comments.size() < (std::size_t{16} << 20)) comments.append("\xFF\xFE\x00\x02", 4);
  file.insert(2, comments);
  EXPECT_TRUE(decodeImage(file, kWanted));
  EXPECT_LT(timeOf(file), 2000);
}

}  // namespace
}  // namespace rendering
