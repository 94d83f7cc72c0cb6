"""Nodes of a legacy project, and how they stand in its file."""

import uuid
import xml.etree.ElementTree as xml
from pathlib import Path

HERE = Path(__file__).resolve().parent


def identifier(name):
    """The same name always gives the same identifier."""
    return str(uuid.uuid5(uuid.NAMESPACE_URL, f"legacy/{name}")).upper()


def node(name, *children):
    made = xml.Element("node", name=name)
    made.extend(child for child in children if child is not None)
    return made


def value(name, code, content):
    text = " ".join(f"{part:g}" for part in content) if isinstance(content, tuple) else content
    return xml.Element("node", name=name, code=str(code), value=f"{text:g}" if isinstance(text, float) else str(text))


def wholes(**keys):
    return [value(name, 3, number) for name, number in keys.items()]


def guid(key, name):
    return value(key, 11, identifier(name))


def moment(seconds):
    """A float in the place of a whole number, as the format has it."""
    return xml.Element("node", name="TIME", code="3", float=f"{seconds:g}")


def picture(key, path):
    return node(key, value("FILENAME", 4, path))


def color(red, green, blue):
    """Stored as the distance from white. Full blue can't be said."""
    return (255 - red) << 16 | (255 - green) << 8 | (255 - blue)


def write(name, *parts):
    root = xml.Element("legacy", version="1")
    root.extend(parts)
    xml.indent(root)
    text = xml.tostring(root, encoding="unicode")
    (HERE / name).write_text(f'<?xml version="1.0" encoding="UTF-8"?>\n{text}\n', encoding="utf-8")
