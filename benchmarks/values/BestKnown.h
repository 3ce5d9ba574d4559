// The fastest ways known to us to read and write single values, without the rules that the library follows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace bench {

__extension__ typedef __int128 Int128;

// Up to 38 digits in one number, and how many of them stand behind the point.
struct FixedPoint {
    Int128 digits = 0;
    int places = 0;
};

// The texts are valid. std::from_chars and std::to_chars.
int ReadInt(std::string_view text);
std::string WriteInt(int value);
long long ReadLongLong(std::string_view text);
std::string WriteLongLong(long long value);
double ReadDouble(std::string_view text);
std::string WriteDouble(double value); // as "%.16g"

// By hand, at most 19 digits at a time.
FixedPoint ReadFixedPoint(std::string_view text);
std::string WriteFixedPoint(FixedPoint const& value);

// By tables of one character for six bits and back.
std::vector<unsigned char> ReadBase64(std::string_view text);
std::string WriteBase64(std::vector<unsigned char> const& bytes);

} // namespace bench
