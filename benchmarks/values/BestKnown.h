// The fastest ways known to us to read and write single values, without the rules that the library follows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace bench {

__extension__ typedef __int128 Int128;

// Up to nineteen digits on each side of the point, in one number, and how many of them stand behind it.
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

// By hand: digit by digit in, std::to_chars out.
FixedPoint ReadFixedPoint(std::string_view text);
std::string WriteFixedPoint(FixedPoint const& value);

// By tables of one character for six bits and back.
std::vector<unsigned char> ReadBase64(std::string_view text);
std::string WriteBase64(std::vector<unsigned char> const& bytes);

} // namespace bench
