// Generated from an XML schema by zvxml-gen. Changes are lost.
#pragma once

namespace golden {

enum class Colour;

class CBase;
class CPlain;
class CAmount;
class CText;
class COrder;
} // namespace golden

