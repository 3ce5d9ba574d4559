"""Pretty printers of gdb for the values of zvxmllib.

gdb loads them by itself for the installed shared library. For a program with the static library:
(gdb) source .../share/zvxmllib/zvxmllib-gdb.py

They need debug information of the library, as a build of the type RelWithDebInfo or Debug has it.
"""
import gdb
import gdb.printing

LIMB = 10**9  # of big numbers, see values/numbers/Magnitude.h


def signed(negative, text):
    return "-" + text if negative else text


def magnitude(value):
    """The whole number; None for one that was never made."""
    size, capacity = int(value["m_size"]), int(value["m_capacity"])
    if size > 100000:
        return None
    in_place = value["m_inPlace"]
    room = in_place.type.range()[1] + 1
    limbs = in_place if capacity == room else value["m_owned"]
    number = 0
    for i in reversed(range(size)):
        number = number * LIMB + int(limbs[i])
    return number


class BigInteger:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        number = magnitude(self.value["m_digits"])
        return "<not a number>" if number is None else signed(int(self.value["m_sign"]) < 0, str(number))


class Decimal:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        whole = magnitude(self.value["m_integerPart"]["m_digits"])
        fraction = magnitude(self.value["m_fractionPart"]["m_digits"])
        digits = int(self.value["m_fractionDivider"])
        if whole is None or fraction is None or not 0 <= digits < 100000:
            return "<not a number>"
        text = str(whole) + ("." + str(fraction).rjust(digits, "0") if fraction else "")
        return signed(int(self.value["m_integerPart"]["m_sign"]) < 0, text)


def second(value, unit, parts):
    fraction = "".join("%03d" % int(value[part]) for part in parts).rstrip("0")
    return "%02d" % int(value[unit]) + ("." + fraction if fraction else "")


class DateTime:
    FORMS = {1: "{date}T{time}", 2: "{date}", 3: "{y}-{m}", 4: "{y}", 5: "{time}", 6: "---{d}", 7: "--{m}", 8: "--{m}-{d}"}

    def __init__(self, value):
        self.value = value

    def to_string(self):
        v = self.value
        form = self.FORMS.get(int(v["m_type"]))
        if form is None:
            return "<no date>"
        year = int(v["m_year"])
        y, m, d = signed(year < 0, "%04d" % abs(year)), "%02d" % int(v["m_month"]), "%02d" % int(v["m_day"])
        time = "%02d:%02d:%s" % (int(v["m_hour"]), int(v["m_minute"]),
                                 second(v, "m_second", ("m_milliSecond", "m_microSecond", "m_nanoSecond")))
        text = form.format(date="%s-%s-%s" % (y, m, d), time=time, y=y, m=m, d=d)
        if not v["m_hasZone"]:
            return text
        hour, minute = int(v["m_zoneHour"]), int(v["m_zoneMinute"])
        if hour == 0 and minute == 0:
            return text + "Z"
        return text + ("-" if hour < 0 or v["m_isZoneNegative"] else "+") + "%02d:%02d" % (abs(hour), minute)


class DateTimeSpan:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        v = self.value

        def parts(*fields):
            return "".join("%d%s" % (int(v[name]), letter) for name, letter in fields if int(v[name]))

        text = "P" + parts(("m_years", "Y"), ("m_months", "M"), ("m_days", "D"))
        time = parts(("m_hours", "H"), ("m_minutes", "M"))
        seconds = second(v, "m_seconds", ("m_milliSeconds", "m_microSeconds", "m_nanoSeconds")).lstrip("0")
        if seconds:
            time += ("0" if seconds[0] == "." else "") + seconds + "S"
        if time or text == "P":
            text += "T" + (time or "0S")
        return signed(bool(v["m_isNegative"]), text)


class BinaryData:
    SHOWN = 32

    def __init__(self, value):
        self.value = value

    def to_string(self):
        buffer = self.value["m_buffer"]
        if int(buffer) == 0:
            return "0 octets"
        try:
            held = buffer.dereference()
            length = int(held["m_dwLen"])
            data = gdb.default_visualizer(held["m_lpData"])
            pointer = held["m_lpData"]["_M_t"]["_M_t"]["_M_head_impl"] if data is None else dict(data.children())["get()"]
            octets = bytes(int(pointer[i]) for i in range(min(length, self.SHOWN)))
        except (gdb.error, KeyError, RuntimeError, ValueError):
            return "octets"  # the class is the library's own: its debug information is not there
        return "%d octets %s%s" % (length, octets.hex(), "..." if length > self.SHOWN else "")


class Variant:
    # What is in the slot, by type; other types have an object or a text.
    SLOTS = {"i1": "m_i1", "i2": "m_i2", "i4": "m_i4", "i8": "m_i8", "ui1": "m_ui1", "ui2": "m_ui2", "ui4": "m_ui4",
             "ui8": "m_ui8", "r4": "m_r4", "r8": "m_r8", "char": "m_char", "boolean": "m_boolean", "year": "m_ui2",
             "month": "m_ui1", "day": "m_ui1", "string": "m_text", "XmlObjectBase": "m_pXmlObj",
             "XmlCollection": "m_pXmlObj"}
    OBJECTS = {"hexBinary": "m_pBinary", "base64Binary": "m_pBinary", "duration": "m_pDuration",
               "decimal": "m_pDecimal", "integer": "m_pBigInteger"}

    def __init__(self, value):
        self.value = value

    def to_string(self):
        name = str(self.value["m_type"]).split("ItemType_")[-1]
        if name == "invalid":
            return "nil" if self.value["m_isNil"] else "invalid"
        if self.value["m_isNil"]:
            return name + " nil"
        if name in self.SLOTS:
            held = self.value[self.SLOTS[name]]
            if name in ("i1", "ui1", "month", "day"):
                held = int(held)
            return "%s %s" % (name, held if not isinstance(held, gdb.Value) else held.format_string())
        pointer = self.value[self.OBJECTS.get(name, "m_pDateTime")]
        return "%s %s" % (name, pointer.dereference().format_string() if int(pointer) else "null")


class SmartPointer:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        pointer = self.value[self.value.type.fields()[0].name]
        if int(pointer) == 0:
            return "null"
        try:
            kind = pointer.dynamic_type.target()
        except (gdb.error, RuntimeError):
            kind = pointer.type.target()
        return "(%s *) %#x" % (kind, int(pointer))

    def children(self):
        pointer = self.value[self.value.type.fields()[0].name]
        if int(pointer):
            yield "object", pointer.dereference()


class Values:
    """A collection of values of a simple type."""

    def __init__(self, value):
        self.value = value["m_values"]

    def to_string(self):
        return "collection"

    def children(self):
        printer = gdb.default_visualizer(self.value)
        return printer.children() if printer is not None else iter(())

    def display_hint(self):
        return "array"


class Objects:
    """A collection of objects."""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "collection of %d" % int(self.value["m_count"])

    def children(self):
        node, i = self.value["m_pHead"], 0
        while int(node) and i < int(self.value["m_count"]):
            yield "[%d]" % i, node["m_item"]
            node, i = node["m_pNext"], i + 1

    def display_hint(self):
        return "array"


class ValueText:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        length = int(self.value["m_length"])
        chars = self.value["m_chars"]
        if length != 0xFF:
            return chars.address.cast(gdb.lookup_type("char").pointer()).string(length=length)
        block = chars.address.cast(gdb.lookup_type("char").pointer().pointer())
        length = int(chars.address.cast(gdb.lookup_type("unsigned long").pointer())[1])
        return block[0].string(length=min(length, 200))

    def display_hint(self):
        return "string"


def find_printer(value):
    """By the class, or one that it is derived from."""
    kind = value.type.strip_typedefs()
    if kind.code == gdb.TYPE_CODE_REF:
        kind = kind.target().strip_typedefs()
    while kind.code == gdb.TYPE_CODE_STRUCT and kind.tag:
        name = kind.tag.split("<")[0].split("::")[-1]
        # Without debug information of the library a class has no members.
        if name in PRINTERS and ("ZvXmlLib16" in kind.tag or name == "CSmartPtr") and kind.fields():
            return PRINTERS[name](value)
        bases = [field for field in kind.fields() if field.is_base_class]
        if not bases:
            return None
        kind = bases[0].type.strip_typedefs()
    return None


PRINTERS = {"ZvVariant": Variant, "CSmartPtr": SmartPointer, "CDateTime": DateTime, "CDateTimeSpan": DateTimeSpan,
            "CDecimal": Decimal, "CBigInteger": BigInteger, "CBinaryData": BinaryData, "ValueStore": Values,
            "CXmlCollection": Objects, "ValueText": ValueText}


class Collection(gdb.printing.PrettyPrinter):
    def __init__(self):
        super().__init__("zvxmllib")

    def __call__(self, value):
        return find_printer(value)


gdb.printing.register_pretty_printer(gdb.current_objfile(), Collection(), replace=True)
