#!/usr/bin/env python3
"""Makes the tables of results of arithmetic, worked out by Python's integers and fractions.

    python3 tests/values/make_number_tables.py > tests/data/numbers.txt
"""
import math
import random
import sys
from fractions import Fraction

random.seed(16)
sys.set_int_max_str_digits(0)
MODULUS = 1000000007


def table(name, comment, rows):
    print(f"\n# {comment}\n[{name}]")
    for row in rows:
        print(" ".join(row))


def truncated(a, b):
    quotient = abs(a) // abs(b)
    return quotient if (a < 0) == (b < 0) else -quotient


# Whole numbers.

def integers():
    limb = 10**9
    # Divisors whose first digits lead to a guess that is too large, and limbs of nothing but nines and zeros.
    pairs = [(0, 7), (7, 1), (-7, 2), (7, -2), (-7, -2), (-6, 3), (limb - 1, 1), (limb, limb - 1),
             (limb**2 - 1, limb + 1), (limb**4, limb**2 - 1), (limb**4 - 1, limb**2),
             (limb**3 * (limb // 2) - 1, (limb // 2) * limb + limb - 1),
             (limb**4 * (limb // 2 - 1) + limb**2 * (limb - 1), (limb // 2) * limb**2 + limb - 1),
             (limb**5, limb**4 + 1), (limb**6 - limb**3, limb**3 - 1), (10**40, 3), (-10**45 + 1, 10**18),
             (2**256, 2**128 - 1), (-3**200, 7**50)]
    for _ in range(12):
        a = random.randrange(10**random.randrange(1, 90))
        b = random.randrange(1, 10**random.randrange(1, 60))
        pairs.append((random.choice((a, -a)), random.choice((b, -b))))
    for a, b in pairs:
        quotient = truncated(a, b)
        yield [str(x) for x in (a, b, a + b, a - b, a * b, quotient, a - quotient * b, math.isqrt(abs(a)))]


# The digits that the tests make, too.
def digits(count, seed):
    state, text = seed, ""
    for _ in range(count):
        state = (state * 6364136223846793005 + 1442695040888963407) % 2**64
        text += str((state >> 33) % 10)
    return int("1" + text)


def large_integers():
    for count_a, count_b in ((330, 330), (360, 359), (361, 361), (369, 300), (720, 355), (1500, 1500), (2000, 363),
                             (3000, 2000), (5000, 700), (10000, 5000), (10000, 9999)):
        a, b = digits(count_a, 1), digits(count_b, 2)
        results = (a * b, a // b, a % b, math.isqrt(a))
        yield [str(count_a), str(count_b)] + [str(result % MODULUS) for result in results]


def doubles():
    for value in (0.5, 0.51, 1.5, 2.5, 2.6, -2.5, -2.6, -0.3, 4503599627370495.5, 9007199254740991.0, 2.0**53,
                  2.0**53 + 2, 1.5e20, -1e23, 2.0**100, 1e300, 1.7976931348623157e308):
        rest, text = float(math.ceil(abs(value) - 0.5)), ""
        while rest > 0:  # the quotients are rounded as doubles are, and the digits with them
            text = str(int(math.fmod(rest, 10))) + text
            rest = float(math.trunc(rest / 10))
        sign = "-" if value < 0 and text else ""
        yield [repr(value), str(sign + (text or "0"))]


# Decimal numbers.

def places_of(value):
    places = 0
    while (value * 10**places).denominator != 1:
        places += 1
    return places


def half_down(value, places):
    scaled = abs(value) * 10**places
    whole = scaled.numerator // scaled.denominator
    whole += scaled - whole > Fraction(1, 2)
    return math.copysign(1, value) < 0, whole


def text_of(is_negative, scaled, places):
    padded = str(scaled).rjust(places + 1, "0")
    whole, fraction = padded[:len(padded) - places], padded[len(padded) - places:]
    if not fraction.strip("0"):
        return ("-" if is_negative and whole.strip("0") else "") + whole
    return ("-" if is_negative else "") + whole + "." + fraction


def exact(value):
    places = places_of(value)
    return text_of(value < 0, abs(value) * 10**places, places)


def limited(value):
    return exact(value) if places_of(value) <= 30 else text_of(*half_down(value, 30), 30)


def divided(a, b):
    return limited(Fraction(truncated((a / b).numerator * 10**32, (a / b).denominator), 10**32))


def decimal_text(whole, fraction):
    text = str(random.randrange(10**random.randrange(1, whole + 1)))
    if fraction:
        text += "." + str(random.randrange(10**fraction)).rjust(fraction, "0")
    return random.choice(("", "-")) + text


def decimals():
    third = "0." + "3" * 30
    pairs = [("0", "1"), ("-1.5", "2"), ("1.5", "-2"), ("-0.2", "-0.8"), ("1", "3"), ("2", "3"), ("-2", "3"),
             ("0.5", "0.5"), (third, "3"), (third, third), ("999999999.999999999", "0.000000001"), ("1", "7"),
             ("0.00000000000001", "-0.00000000000000007"), ("-0.000000000000001", "0.0000000000000005"),
             ("123456789012345678901234567890.5", "0.000000000000000000000000000001"), ("1.0", "8.00"),
             ("99999999999999999999.99999999999999999999", "0.00000000000000000001")]
    for _ in range(12):
        pairs.append((decimal_text(25, random.randrange(31)), decimal_text(10, random.randrange(20))))
    for a, b in pairs:
        x, y = Fraction(a), Fraction(b)
        yield [str(t) for t in (a, b, exact(x + y), exact(x - y), limited(x * y),
                                  divided(x, y) if y else "")] + [str(int(x > y) - int(x < y))]


def fixed(value, places):
    half = Fraction(5, 10**(places + 1)) if places < 30 else 0
    rounded = value - half if value < 0 else value + half
    held = max(places_of(rounded), 1)
    padded = str(abs(rounded) * 10**held).rjust(held + 1, "0")
    point = len(padded) - held
    return ("-" if rounded < 0 else "") + padded[:point] + "." + padded[point:][:places]


def roundings():
    for text in ("0", "0.125", "-0.125", "0.999", "0.95", "2.5", "2.51", "2.6", "-2.5", "-2.6", "-0.04", "-0.5",
                 "9.995", "1.5", "1.9549", "0.0000000000000000000000000000005", "123456789.987654321"):
        value = Fraction(text)
        value = Fraction(limited(value))
        negative, whole = half_down(value, 0)
        _, tenths = half_down(value, 1)
        yield ([str(text)] + [str(fixed(value, places)) for places in (0, 1, 2, 3, 31)] +
               [str(-whole if negative else whole), str(-(tenths // 10) if negative else tenths // 10)])


print("# Results of arithmetic, worked out by Python's integers and fractions: see make_number_tables.py.")
table("integers", "a b sum difference product quotient remainder root-of-the-magnitude", integers())
table("large integers", "Of a one and as many digits of the generator, seeds 1 and 2, modulo 1000000007: digits of a "
      "and b, product quotient remainder root", large_integers())
table("doubles", "Halves towards zero, and large ones with the digits of repeated division.", doubles())
table("decimals", "a b sum difference product quotient order: to 30 places, halves towards zero.", decimals())
table("roundings", "value, to 0, 1, 2, 3, 31 places, to long, to long long: text rounds halves away from zero, numbers "
      "towards it.", roundings())
