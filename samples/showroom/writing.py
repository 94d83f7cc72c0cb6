"""How values and identifiers stand in a project file."""

import struct
import uuid
import xml.etree.ElementTree as xml
from decimal import Decimal


def identifier(name):
    """The same name always gives the same identifier, so that a new file differs only where the tables do."""
    return str(uuid.uuid5(uuid.NAMESPACE_URL, f"showroom/{name}")).upper()


def number(value):
    """The shortest text that gives the same number of 32 bits, as the player writes it."""
    bits = struct.pack("<f", value)
    for digits in range(1, 10):
        text = f"{value:.{digits}g}"
        if struct.pack("<f", float(text)) == bits:
            break
    return format(Decimal(text), "f")


def text_of(value):
    if isinstance(value, bool):
        return str(int(value))
    if isinstance(value, tuple):
        return " ".join(number(part) if isinstance(part, float) else str(part) for part in value)
    return number(value) if isinstance(value, float) else str(value)


def put(parent, kind, key, value):
    xml.SubElement(parent, kind, key=key, value=text_of(value))


def put_text(parent, key, text):
    """A text of several lines stands between the tags, where its lines can be read."""
    if "\n" in text:
        xml.SubElement(parent, "text", key=key).text = text
    else:
        put(parent, "text", key, text)
