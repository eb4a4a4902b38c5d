// The frame decoder against every way in which a stream can be cut or wrong.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "WidgetRuntime/Framing.hpp"

namespace widgetruntime {
namespace {

constexpr std::size_t kLimit = 100;

// All messages, then "error: ..." if the stream broke.
std::vector<std::string> decode(const std::vector<std::string>& pieces) {
  FrameDecoder decoder(kLimit);
  std::vector<std::string> result;
  for (const std::string& piece : pieces) {
    decoder.append(piece);
    while (true) {
      const auto message = decoder.next();
      if (!message) {
        result.push_back("error: " + message.error().message);
        return result;
      }
      if (!*message) break;
      result.push_back(**message);
    }
  }
  return result;
}

TEST(Framing, EncodesLengthInBytes) {
  EXPECT_EQ(encodeFrame("{}"), "Content-Length: 2\r\n\r\n{}");
  EXPECT_EQ(encodeFrame("\xC3\xA9"), "Content-Length: 2\r\n\r\n\xC3\xA9");
  EXPECT_EQ(encodeFrame(""), "Content-Length: 0\r\n\r\n");
}

TEST(Framing, GivesTheSameMessagesHoweverTheStreamIsCut) {
  const std::string stream = encodeFrame("{\"a\":1}") + encodeFrame("") + encodeFrame("[2]");
  const std::vector<std::string> expected{"{\"a\":1}", "", "[2]"};
  EXPECT_EQ(decode({stream}), expected);
  for (std::size_t cut = 0; cut <= stream.size(); ++cut) {
    EXPECT_EQ(decode({stream.substr(0, cut), stream.substr(cut)}), expected) << cut;
  }
  std::vector<std::string> bytes;
  for (const char c : stream) bytes.emplace_back(1, c);
  EXPECT_EQ(decode(bytes), expected);
}

TEST(Framing, KeepsNothingOfWhatItHasGivenOut) {
  FrameDecoder decoder(kLimit);
  for (int i = 0; i < 1000; ++i) {
    decoder.append(encodeFrame("0123456789") + "Content-");
    EXPECT_EQ(decoder.next().value(), "0123456789");
    EXPECT_EQ(decoder.next().value(), std::nullopt);
    EXPECT_EQ(decoder.pending(), 8U);
    decoder.append("Length: 1\r\n\r\n7");
    EXPECT_EQ(decoder.next().value(), "7");
    EXPECT_EQ(decoder.pending(), 0U);
  }
}

struct Row {
  std::string stream;
  std::vector<std::string> expected;
};

TEST(Framing, ReadsHeadersAsTheyAreWritten) {
  const std::string kindHeader = "Content-Type: application/json; charset=utf-8\r\n";
  const std::vector<Row> rows{
      {"content-length: 2\r\n\r\n{}", {"{}"}},
      {"CONTENT-LENGTH:2\r\n\r\n{}", {"{}"}},
      {"Content-Length: \t2 \r\n\r\n{}", {"{}"}},
      {"Content-Length: 002\r\n\r\n{}", {"{}"}},
      {kindHeader + "Content-Length: 2\r\n\r\n{}", {"{}"}},
      {"Content-Length: 2\r\n" + kindHeader + "\r\n{}", {"{}"}},
      {"Content-Length: 100\r\n\r\n" + std::string(100, 'x'), {std::string(100, 'x')}},
  };
  for (const Row& row : rows) EXPECT_EQ(decode({row.stream}), row.expected) << row.stream;
}

TEST(Framing, GivesUpAStreamThatIsNotFramed) {
  const std::vector<Row> rows{
      {"Content-Length: 101\r\n\r\n", {"error: 101 bytes, 100 are allowed"}},
      {"Content-Length: 99999999999999999999999\r\n\r\n",
       {"error: Content-Length is no number of bytes"}},
      {"Content-Length: -1\r\n\r\n", {"error: Content-Length is no number of bytes"}},
      {"Content-Length: +2\r\n\r\n{}", {"error: Content-Length is no number of bytes"}},
      {"Content-Length: 0x2\r\n\r\n{}", {"error: Content-Length is no number of bytes"}},
      {"Content-Length: 2.0\r\n\r\n{}", {"error: Content-Length is no number of bytes"}},
      {"Content-Length:\r\n\r\n{}", {"error: Content-Length is no number of bytes"}},
      {"Content-Length: 2\r\nContent-Length: 2\r\n\r\n{}", {"error: two Content-Length headers"}},
      {"Content-Type: x\r\n\r\n{}", {"error: no Content-Length header"}},
      {"\r\n\r\n", {"error: a header line is not \"name: value\""}},
      {"{\"jsonrpc\":\"2.0\"}\r\n\r\n", {"error: a header line is not \"name: value\""}},
      {"Content-Length 2\r\n\r\n{}", {"error: a header line is not \"name: value\""}},
      {"Content Length: 2\r\n\r\n{}", {"error: a header line is not \"name: value\""}},
      {": 2\r\n\r\n{}", {"error: a header line is not \"name: value\""}},
      {std::string(2000, 'x'), {"error: no end of header in 1024 bytes"}},
      {encodeFrame("ok") + "Content-Length: no\r\n\r\n",
       {"ok", "error: Content-Length is no number of bytes"}},
  };
  for (const Row& row : rows) EXPECT_EQ(decode({row.stream}), row.expected) << row.stream;
}

TEST(Framing, WaitsForTheRestOfAFrame) {
  for (const char* stream :
       {"", "Content-Le", "Content-Length: 2\n\n{}", "Content-Length: 9\r\n\r\n{}"}) {
    EXPECT_EQ(decode({stream}), std::vector<std::string>{}) << stream;
  }
}

TEST(Framing, HeaderOfExactlyTheLimitIsRead) {
  const std::string rest = "Content-Length: 2\r\n\r\n";
  const std::string filler =
      "X: " + std::string(kMaximumHeader - rest.size() - std::string("X: \r\n").size(), 'x') +
      "\r\n";
  EXPECT_EQ(decode({filler + rest + "{}"}), std::vector<std::string>{"{}"});
  EXPECT_EQ(decode({"y" + filler + rest + "{}"}),
            std::vector<std::string>{"error: no end of header in 1024 bytes"});
}

TEST(Framing, StaysInError) {
  FrameDecoder decoder(kLimit);
  decoder.append("\r\n\r\n");
  ASSERT_FALSE(decoder.next());
  decoder.append(encodeFrame("{}"));
  ASSERT_FALSE(decoder.next());
  EXPECT_EQ(decoder.pending(), 0U);
}

}  // namespace
}  // namespace widgetruntime
