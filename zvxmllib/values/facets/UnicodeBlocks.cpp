// The blocks of Unicode 14, by name. The names are those of the standard without their blanks, and those that
// XML Schema Part 2, F.1.1, has for blocks that were given others later.
#include "zvxmllib/values/facets/CharacterSets.h"

#include <algorithm>
#include <iterator>

namespace ZvXmlLib16::detail {

namespace {

struct Block {
    std::string_view name;
    CharacterRange range;
};

// Stands for the surrogates, of which no text has one, nor this.
constexpr CharacterRange kNoCharacter = {0xFFFF, 0xFFFF};

// clang-format off
constexpr Block kBlocks[] = {
    {"Adlam", {0x1E900, 0x1E95F}}, {"AegeanNumbers", {0x10100, 0x1013F}}, {"Ahom", {0x11700, 0x1174F}},
    {"AlchemicalSymbols", {0x1F700, 0x1F77F}}, {"AlphabeticPresentationForms", {0xFB00, 0xFB4F}},
    {"AnatolianHieroglyphs", {0x14400, 0x1467F}}, {"AncientGreekMusicalNotation", {0x1D200, 0x1D24F}},
    {"AncientGreekNumbers", {0x10140, 0x1018F}}, {"AncientSymbols", {0x10190, 0x101CF}},
    {"Arabic", {0x600, 0x6FF}}, {"ArabicExtended-A", {0x8A0, 0x8FF}}, {"ArabicExtended-B", {0x870, 0x89F}},
    {"ArabicMathematicalAlphabeticSymbols", {0x1EE00, 0x1EEFF}},
    {"ArabicPresentationForms-A", {0xFB50, 0xFDFF}}, {"ArabicPresentationForms-B", {0xFE70, 0xFEFF}},
    {"ArabicSupplement", {0x750, 0x77F}}, {"Armenian", {0x530, 0x58F}}, {"Arrows", {0x2190, 0x21FF}},
    {"Avestan", {0x10B00, 0x10B3F}}, {"Balinese", {0x1B00, 0x1B7F}}, {"Bamum", {0xA6A0, 0xA6FF}},
    {"BamumSupplement", {0x16800, 0x16A3F}}, {"BasicLatin", {0x0, 0x7F}}, {"BassaVah", {0x16AD0, 0x16AFF}},
    {"Batak", {0x1BC0, 0x1BFF}}, {"Bengali", {0x980, 0x9FF}}, {"Bhaiksuki", {0x11C00, 0x11C6F}},
    {"BlockElements", {0x2580, 0x259F}}, {"Bopomofo", {0x3100, 0x312F}},
    {"BopomofoExtended", {0x31A0, 0x31BF}}, {"BoxDrawing", {0x2500, 0x257F}}, {"Brahmi", {0x11000, 0x1107F}},
    {"BraillePatterns", {0x2800, 0x28FF}}, {"Buginese", {0x1A00, 0x1A1F}}, {"Buhid", {0x1740, 0x175F}},
    {"ByzantineMusicalSymbols", {0x1D000, 0x1D0FF}}, {"CJKCompatibility", {0x3300, 0x33FF}},
    {"CJKCompatibilityForms", {0xFE30, 0xFE4F}}, {"CJKCompatibilityIdeographs", {0xF900, 0xFAFF}},
    {"CJKCompatibilityIdeographsSupplement", {0x2F800, 0x2FA1F}}, {"CJKRadicalsSupplement", {0x2E80, 0x2EFF}},
    {"CJKStrokes", {0x31C0, 0x31EF}}, {"CJKSymbolsandPunctuation", {0x3000, 0x303F}},
    {"CJKUnifiedIdeographs", {0x4E00, 0x9FFF}}, {"CJKUnifiedIdeographsExtensionA", {0x3400, 0x4DBF}},
    {"CJKUnifiedIdeographsExtensionB", {0x20000, 0x2A6DF}},
    {"CJKUnifiedIdeographsExtensionC", {0x2A700, 0x2B73F}},
    {"CJKUnifiedIdeographsExtensionD", {0x2B740, 0x2B81F}},
    {"CJKUnifiedIdeographsExtensionE", {0x2B820, 0x2CEAF}},
    {"CJKUnifiedIdeographsExtensionF", {0x2CEB0, 0x2EBEF}},
    {"CJKUnifiedIdeographsExtensionG", {0x30000, 0x3134F}}, {"Carian", {0x102A0, 0x102DF}},
    {"CaucasianAlbanian", {0x10530, 0x1056F}}, {"Chakma", {0x11100, 0x1114F}}, {"Cham", {0xAA00, 0xAA5F}},
    {"Cherokee", {0x13A0, 0x13FF}}, {"CherokeeSupplement", {0xAB70, 0xABBF}},
    {"ChessSymbols", {0x1FA00, 0x1FA6F}}, {"Chorasmian", {0x10FB0, 0x10FDF}},
    {"CombiningDiacriticalMarks", {0x300, 0x36F}}, {"CombiningDiacriticalMarksExtended", {0x1AB0, 0x1AFF}},
    {"CombiningDiacriticalMarksSupplement", {0x1DC0, 0x1DFF}},
    {"CombiningDiacriticalMarksforSymbols", {0x20D0, 0x20FF}}, {"CombiningHalfMarks", {0xFE20, 0xFE2F}},
    {"CombiningMarksforSymbols", {0x20D0, 0x20FF}}, {"CommonIndicNumberForms", {0xA830, 0xA83F}},
    {"ControlPictures", {0x2400, 0x243F}}, {"Coptic", {0x2C80, 0x2CFF}},
    {"CopticEpactNumbers", {0x102E0, 0x102FF}}, {"CountingRodNumerals", {0x1D360, 0x1D37F}},
    {"Cuneiform", {0x12000, 0x123FF}}, {"CuneiformNumbersandPunctuation", {0x12400, 0x1247F}},
    {"CurrencySymbols", {0x20A0, 0x20CF}}, {"CypriotSyllabary", {0x10800, 0x1083F}},
    {"Cypro-Minoan", {0x12F90, 0x12FFF}}, {"Cyrillic", {0x400, 0x4FF}},
    {"CyrillicExtended-A", {0x2DE0, 0x2DFF}}, {"CyrillicExtended-B", {0xA640, 0xA69F}},
    {"CyrillicExtended-C", {0x1C80, 0x1C8F}}, {"CyrillicSupplement", {0x500, 0x52F}},
    {"Deseret", {0x10400, 0x1044F}}, {"Devanagari", {0x900, 0x97F}}, {"DevanagariExtended", {0xA8E0, 0xA8FF}},
    {"Dingbats", {0x2700, 0x27BF}}, {"DivesAkuru", {0x11900, 0x1195F}}, {"Dogra", {0x11800, 0x1184F}},
    {"DominoTiles", {0x1F030, 0x1F09F}}, {"Duployan", {0x1BC00, 0x1BC9F}},
    {"EarlyDynasticCuneiform", {0x12480, 0x1254F}}, {"EgyptianHieroglyphFormatControls", {0x13430, 0x1343F}},
    {"EgyptianHieroglyphs", {0x13000, 0x1342F}}, {"Elbasan", {0x10500, 0x1052F}},
    {"Elymaic", {0x10FE0, 0x10FFF}}, {"Emoticons", {0x1F600, 0x1F64F}},
    {"EnclosedAlphanumericSupplement", {0x1F100, 0x1F1FF}}, {"EnclosedAlphanumerics", {0x2460, 0x24FF}},
    {"EnclosedCJKLettersandMonths", {0x3200, 0x32FF}}, {"EnclosedIdeographicSupplement", {0x1F200, 0x1F2FF}},
    {"Ethiopic", {0x1200, 0x137F}}, {"EthiopicExtended", {0x2D80, 0x2DDF}},
    {"EthiopicExtended-A", {0xAB00, 0xAB2F}}, {"EthiopicExtended-B", {0x1E7E0, 0x1E7FF}},
    {"EthiopicSupplement", {0x1380, 0x139F}}, {"GeneralPunctuation", {0x2000, 0x206F}},
    {"GeometricShapes", {0x25A0, 0x25FF}}, {"GeometricShapesExtended", {0x1F780, 0x1F7FF}},
    {"Georgian", {0x10A0, 0x10FF}}, {"GeorgianExtended", {0x1C90, 0x1CBF}},
    {"GeorgianSupplement", {0x2D00, 0x2D2F}}, {"Glagolitic", {0x2C00, 0x2C5F}},
    {"GlagoliticSupplement", {0x1E000, 0x1E02F}}, {"Gothic", {0x10330, 0x1034F}},
    {"Grantha", {0x11300, 0x1137F}}, {"Greek", {0x370, 0x3FF}}, {"GreekExtended", {0x1F00, 0x1FFF}},
    {"GreekandCoptic", {0x370, 0x3FF}}, {"Gujarati", {0xA80, 0xAFF}}, {"GunjalaGondi", {0x11D60, 0x11DAF}},
    {"Gurmukhi", {0xA00, 0xA7F}}, {"HalfwidthandFullwidthForms", {0xFF00, 0xFFEF}},
    {"HangulCompatibilityJamo", {0x3130, 0x318F}}, {"HangulJamo", {0x1100, 0x11FF}},
    {"HangulJamoExtended-A", {0xA960, 0xA97F}}, {"HangulJamoExtended-B", {0xD7B0, 0xD7FF}},
    {"HangulSyllables", {0xAC00, 0xD7AF}}, {"HanifiRohingya", {0x10D00, 0x10D3F}},
    {"Hanunoo", {0x1720, 0x173F}}, {"Hatran", {0x108E0, 0x108FF}}, {"Hebrew", {0x590, 0x5FF}},
    {"HighPrivateUseSurrogates", kNoCharacter}, {"HighSurrogates", kNoCharacter}, {"Hiragana", {0x3040, 0x309F}}, {"IPAExtensions", {0x250, 0x2AF}},
    {"IdeographicDescriptionCharacters", {0x2FF0, 0x2FFF}},
    {"IdeographicSymbolsandPunctuation", {0x16FE0, 0x16FFF}}, {"ImperialAramaic", {0x10840, 0x1085F}},
    {"IndicSiyaqNumbers", {0x1EC70, 0x1ECBF}}, {"InscriptionalPahlavi", {0x10B60, 0x10B7F}},
    {"InscriptionalParthian", {0x10B40, 0x10B5F}}, {"Javanese", {0xA980, 0xA9DF}},
    {"Kaithi", {0x11080, 0x110CF}}, {"KanaExtended-A", {0x1B100, 0x1B12F}},
    {"KanaExtended-B", {0x1AFF0, 0x1AFFF}}, {"KanaSupplement", {0x1B000, 0x1B0FF}},
    {"Kanbun", {0x3190, 0x319F}}, {"KangxiRadicals", {0x2F00, 0x2FDF}}, {"Kannada", {0xC80, 0xCFF}},
    {"Katakana", {0x30A0, 0x30FF}}, {"KatakanaPhoneticExtensions", {0x31F0, 0x31FF}},
    {"KayahLi", {0xA900, 0xA92F}}, {"Kharoshthi", {0x10A00, 0x10A5F}},
    {"KhitanSmallScript", {0x18B00, 0x18CFF}}, {"Khmer", {0x1780, 0x17FF}},
    {"KhmerSymbols", {0x19E0, 0x19FF}}, {"Khojki", {0x11200, 0x1124F}}, {"Khudawadi", {0x112B0, 0x112FF}},
    {"Lao", {0xE80, 0xEFF}}, {"Latin-1Supplement", {0x80, 0xFF}}, {"LatinExtended-A", {0x100, 0x17F}},
    {"LatinExtended-B", {0x180, 0x24F}}, {"LatinExtended-C", {0x2C60, 0x2C7F}},
    {"LatinExtended-D", {0xA720, 0xA7FF}}, {"LatinExtended-E", {0xAB30, 0xAB6F}},
    {"LatinExtended-F", {0x10780, 0x107BF}}, {"LatinExtended-G", {0x1DF00, 0x1DFFF}},
    {"LatinExtendedAdditional", {0x1E00, 0x1EFF}}, {"Lepcha", {0x1C00, 0x1C4F}},
    {"LetterlikeSymbols", {0x2100, 0x214F}}, {"Limbu", {0x1900, 0x194F}}, {"LinearA", {0x10600, 0x1077F}},
    {"LinearBIdeograms", {0x10080, 0x100FF}}, {"LinearBSyllabary", {0x10000, 0x1007F}},
    {"Lisu", {0xA4D0, 0xA4FF}}, {"LisuSupplement", {0x11FB0, 0x11FBF}}, {"LowSurrogates", kNoCharacter}, {"Lycian", {0x10280, 0x1029F}},
    {"Lydian", {0x10920, 0x1093F}}, {"Mahajani", {0x11150, 0x1117F}}, {"MahjongTiles", {0x1F000, 0x1F02F}},
    {"Makasar", {0x11EE0, 0x11EFF}}, {"Malayalam", {0xD00, 0xD7F}}, {"Mandaic", {0x840, 0x85F}},
    {"Manichaean", {0x10AC0, 0x10AFF}}, {"Marchen", {0x11C70, 0x11CBF}}, {"MasaramGondi", {0x11D00, 0x11D5F}},
    {"MathematicalAlphanumericSymbols", {0x1D400, 0x1D7FF}}, {"MathematicalOperators", {0x2200, 0x22FF}},
    {"MayanNumerals", {0x1D2E0, 0x1D2FF}}, {"Medefaidrin", {0x16E40, 0x16E9F}},
    {"MeeteiMayek", {0xABC0, 0xABFF}}, {"MeeteiMayekExtensions", {0xAAE0, 0xAAFF}},
    {"MendeKikakui", {0x1E800, 0x1E8DF}}, {"MeroiticCursive", {0x109A0, 0x109FF}},
    {"MeroiticHieroglyphs", {0x10980, 0x1099F}}, {"Miao", {0x16F00, 0x16F9F}},
    {"MiscellaneousMathematicalSymbols-A", {0x27C0, 0x27EF}},
    {"MiscellaneousMathematicalSymbols-B", {0x2980, 0x29FF}}, {"MiscellaneousSymbols", {0x2600, 0x26FF}},
    {"MiscellaneousSymbolsandArrows", {0x2B00, 0x2BFF}},
    {"MiscellaneousSymbolsandPictographs", {0x1F300, 0x1F5FF}}, {"MiscellaneousTechnical", {0x2300, 0x23FF}},
    {"Modi", {0x11600, 0x1165F}}, {"ModifierToneLetters", {0xA700, 0xA71F}}, {"Mongolian", {0x1800, 0x18AF}},
    {"MongolianSupplement", {0x11660, 0x1167F}}, {"Mro", {0x16A40, 0x16A6F}}, {"Multani", {0x11280, 0x112AF}},
    {"MusicalSymbols", {0x1D100, 0x1D1FF}}, {"Myanmar", {0x1000, 0x109F}},
    {"MyanmarExtended-A", {0xAA60, 0xAA7F}}, {"MyanmarExtended-B", {0xA9E0, 0xA9FF}}, {"NKo", {0x7C0, 0x7FF}},
    {"Nabataean", {0x10880, 0x108AF}}, {"Nandinagari", {0x119A0, 0x119FF}}, {"NewTaiLue", {0x1980, 0x19DF}},
    {"Newa", {0x11400, 0x1147F}}, {"NumberForms", {0x2150, 0x218F}}, {"Nushu", {0x1B170, 0x1B2FF}},
    {"NyiakengPuachueHmong", {0x1E100, 0x1E14F}}, {"Ogham", {0x1680, 0x169F}}, {"OlChiki", {0x1C50, 0x1C7F}},
    {"OldHungarian", {0x10C80, 0x10CFF}}, {"OldItalic", {0x10300, 0x1032F}},
    {"OldNorthArabian", {0x10A80, 0x10A9F}}, {"OldPermic", {0x10350, 0x1037F}},
    {"OldPersian", {0x103A0, 0x103DF}}, {"OldSogdian", {0x10F00, 0x10F2F}},
    {"OldSouthArabian", {0x10A60, 0x10A7F}}, {"OldTurkic", {0x10C00, 0x10C4F}},
    {"OldUyghur", {0x10F70, 0x10FAF}}, {"OpticalCharacterRecognition", {0x2440, 0x245F}},
    {"Oriya", {0xB00, 0xB7F}}, {"OrnamentalDingbats", {0x1F650, 0x1F67F}}, {"Osage", {0x104B0, 0x104FF}},
    {"Osmanya", {0x10480, 0x104AF}}, {"OttomanSiyaqNumbers", {0x1ED00, 0x1ED4F}},
    {"PahawhHmong", {0x16B00, 0x16B8F}}, {"Palmyrene", {0x10860, 0x1087F}}, {"PauCinHau", {0x11AC0, 0x11AFF}},
    {"Phags-pa", {0xA840, 0xA87F}}, {"PhaistosDisc", {0x101D0, 0x101FF}}, {"Phoenician", {0x10900, 0x1091F}},
    {"PhoneticExtensions", {0x1D00, 0x1D7F}}, {"PhoneticExtensionsSupplement", {0x1D80, 0x1DBF}},
    {"PlayingCards", {0x1F0A0, 0x1F0FF}}, {"PrivateUse", {0xE000, 0xF8FF}},
    {"PrivateUse", {0xF0000, 0xFFFFD}}, {"PrivateUse", {0x100000, 0x10FFFD}},
    {"PrivateUseArea", {0xE000, 0xF8FF}}, {"PsalterPahlavi", {0x10B80, 0x10BAF}},
    {"Rejang", {0xA930, 0xA95F}}, {"RumiNumeralSymbols", {0x10E60, 0x10E7F}}, {"Runic", {0x16A0, 0x16FF}},
    {"Samaritan", {0x800, 0x83F}}, {"Saurashtra", {0xA880, 0xA8DF}}, {"Sharada", {0x11180, 0x111DF}},
    {"Shavian", {0x10450, 0x1047F}}, {"ShorthandFormatControls", {0x1BCA0, 0x1BCAF}},
    {"Siddham", {0x11580, 0x115FF}}, {"Sinhala", {0xD80, 0xDFF}},
    {"SinhalaArchaicNumbers", {0x111E0, 0x111FF}}, {"SmallFormVariants", {0xFE50, 0xFE6F}},
    {"SmallKanaExtension", {0x1B130, 0x1B16F}}, {"Sogdian", {0x10F30, 0x10F6F}},
    {"SoraSompeng", {0x110D0, 0x110FF}}, {"Soyombo", {0x11A50, 0x11AAF}},
    {"SpacingModifierLetters", {0x2B0, 0x2FF}}, {"Specials", {0xFFF0, 0xFFFF}},
    {"Sundanese", {0x1B80, 0x1BBF}}, {"SundaneseSupplement", {0x1CC0, 0x1CCF}},
    {"SuperscriptsandSubscripts", {0x2070, 0x209F}}, {"SupplementalArrows-A", {0x27F0, 0x27FF}},
    {"SupplementalArrows-B", {0x2900, 0x297F}}, {"SupplementalArrows-C", {0x1F800, 0x1F8FF}},
    {"SupplementalMathematicalOperators", {0x2A00, 0x2AFF}}, {"SupplementalPunctuation", {0x2E00, 0x2E7F}},
    {"SupplementalSymbolsandPictographs", {0x1F900, 0x1F9FF}},
    {"SupplementaryPrivateUseArea-A", {0xF0000, 0xFFFFF}},
    {"SupplementaryPrivateUseArea-B", {0x100000, 0x10FFFF}}, {"SuttonSignWriting", {0x1D800, 0x1DAAF}},
    {"SylotiNagri", {0xA800, 0xA82F}}, {"SymbolsandPictographsExtended-A", {0x1FA70, 0x1FAFF}},
    {"SymbolsforLegacyComputing", {0x1FB00, 0x1FBFF}}, {"Syriac", {0x700, 0x74F}},
    {"SyriacSupplement", {0x860, 0x86F}}, {"Tagalog", {0x1700, 0x171F}}, {"Tagbanwa", {0x1760, 0x177F}},
    {"Tags", {0xE0000, 0xE007F}}, {"TaiLe", {0x1950, 0x197F}}, {"TaiTham", {0x1A20, 0x1AAF}},
    {"TaiViet", {0xAA80, 0xAADF}}, {"TaiXuanJingSymbols", {0x1D300, 0x1D35F}}, {"Takri", {0x11680, 0x116CF}},
    {"Tamil", {0xB80, 0xBFF}}, {"TamilSupplement", {0x11FC0, 0x11FFF}}, {"Tangsa", {0x16A70, 0x16ACF}},
    {"Tangut", {0x17000, 0x187FF}}, {"TangutComponents", {0x18800, 0x18AFF}},
    {"TangutSupplement", {0x18D00, 0x18D7F}}, {"Telugu", {0xC00, 0xC7F}}, {"Thaana", {0x780, 0x7BF}},
    {"Thai", {0xE00, 0xE7F}}, {"Tibetan", {0xF00, 0xFFF}}, {"Tifinagh", {0x2D30, 0x2D7F}},
    {"Tirhuta", {0x11480, 0x114DF}}, {"Toto", {0x1E290, 0x1E2BF}},
    {"TransportandMapSymbols", {0x1F680, 0x1F6FF}}, {"Ugaritic", {0x10380, 0x1039F}},
    {"UnifiedCanadianAboriginalSyllabics", {0x1400, 0x167F}},
    {"UnifiedCanadianAboriginalSyllabicsExtended", {0x18B0, 0x18FF}},
    {"UnifiedCanadianAboriginalSyllabicsExtended-A", {0x11AB0, 0x11ABF}}, {"Vai", {0xA500, 0xA63F}},
    {"VariationSelectors", {0xFE00, 0xFE0F}}, {"VariationSelectorsSupplement", {0xE0100, 0xE01EF}},
    {"VedicExtensions", {0x1CD0, 0x1CFF}}, {"VerticalForms", {0xFE10, 0xFE1F}},
    {"Vithkuqi", {0x10570, 0x105BF}}, {"Wancho", {0x1E2C0, 0x1E2FF}}, {"WarangCiti", {0x118A0, 0x118FF}},
    {"Yezidi", {0x10E80, 0x10EBF}}, {"YiRadicals", {0xA490, 0xA4CF}}, {"YiSyllables", {0xA000, 0xA48F}},
    {"YijingHexagramSymbols", {0x4DC0, 0x4DFF}}, {"ZanabazarSquare", {0x11A00, 0x11A4F}},
    {"ZnamennyMusicalNotation", {0x1CF00, 0x1CFCF}},
};
// clang-format on

} // namespace

CharacterSet BlockOf(std::string_view name) {
    auto const isLess = [](Block const& block, std::string_view other) { return block.name < other; };
    CharacterSet set;
    Block const* block = std::lower_bound(std::begin(kBlocks), std::end(kBlocks), name, isLess);
    for (; block != std::end(kBlocks) && block->name == name; ++block)
        set.push_back(block->range);
    return set;
}

} // namespace ZvXmlLib16::detail
