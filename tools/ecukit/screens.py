# SPDX-FileCopyrightText: the Kelmar developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""The screens of an ECU file, byte for byte as the editor writes them. Geometry in twips."""

from dataclasses import dataclass, field

from .xml import SCREEN_SCHEMA, attr, number_to_text

FONT = "Arial"


def _rectangle(left, top, height, width):
    return f'<Rectangle Left="{left}" Top="{top}" Height="{height}" Width="{width}"/>\n'


@dataclass(slots=True)
class Label:
    text: str
    left: int
    top: int
    width: int = 4000
    height: int = 400
    size: float = 10
    bold: bool = False
    italic: bool = False
    colour: int = 0
    back: int = 0xFFFFFF
    alignment: int = 0

    def xml(self):
        return (f'\n<Label Text="{attr(self.text)}" Color="{self.back}" Alignment="{self.alignment}">\n'
                + _rectangle(self.left, self.top, self.height, self.width)
                + f'<Font Name="{FONT}" Size="{number_to_text(self.size)}" Bold="{int(self.bold)}"'
                  f' Italic="{int(self.italic)}" Color="{self.colour}"/></Label>')


def sends(steps):
    """`steps`: (delay in ms, request name)."""
    return "".join(f'<Send Delay="{delay}" RequestName="{attr(name)}"/>' for delay, name in steps)


@dataclass(slots=True)
class Button:
    caption: str
    left: int
    top: int
    width: int = 2200
    height: int = 450
    size: float = 10
    bold: bool = False
    message: str = ""
    steps: tuple = ()

    def xml(self):
        return (f'\n<Button Text="{attr(self.caption)}">\n'
                + _rectangle(self.left, self.top, self.height, self.width)
                + f'<Font Name="{FONT}" Size="{number_to_text(self.size)}" Bold="{int(self.bold)}"'
                  f' Italic="0"/>\n<Message Text="{attr(self.message)}"/>\n'
                + sends(self.steps) + "\n</Button>")


@dataclass(slots=True)
class Range:
    value: object
    colour: int
    sound: str = ""

    def xml(self):
        out = f'<Threshold Value="{number_to_text(self.value)}" Color="{self.colour}"'
        return out + (f'>\n<Sound Name="{attr(self.sound)}"/></Threshold>' if self.sound else "/>")


@dataclass(slots=True)
class Display:
    """Of one data of a request, or of a whole request when `data` is empty."""

    data: str
    request: str
    left: int
    top: int
    caption_width: int = 3000
    width: int = 4800
    height: int = 300
    size: int = 10
    bold: bool = False
    colour: int = 0
    back: int = 0xFFFFFF
    sent: bool = False  # bound to the sent frame: an input field
    ranges: tuple = ()

    def xml(self):
        element = "Input" if self.sent else "Display"
        out = f'\n<{element} Width="{self.caption_width}" Color="{self.back}"'
        if self.data:
            out += f' DataName="{attr(self.data)}"'
        out += f' RequestName="{attr(self.request)}">\n'
        out += _rectangle(self.left, self.top, self.height, self.width)
        out += (f'<Font Name="{FONT}" Size="{self.size}" Bold="{int(self.bold)}" Italic="0"'
                f' Color="{self.colour}"/>')
        return out + "".join(r.xml() for r in self.ranges) + f"</{element}>"


@dataclass(slots=True)
class Screen:
    name: str
    colour: int = 0xFFFFFF
    window_state: int = 0
    width: int = 12000
    height: int = 8000
    labels: list = field(default_factory=list)
    init: tuple = ()  # steps that run when the screen opens
    buttons: list = field(default_factory=list)
    displays: list = field(default_factory=list)

    def xml(self):
        return (f'<Screen Name="{attr(self.name)}" Color="{self.colour}"'
                f' WindowState="{self.window_state}" Width="{self.width}" Height="{self.height}">\n'
                + "".join(x.xml() for x in self.labels) + "\n" + sends(self.init)
                + "".join(x.xml() for x in self.buttons) + "\n"
                + "".join(x.xml() for x in self.displays) + "\n</Screen>")


def categories_open(screen_schema=SCREEN_SCHEMA):
    space = f' xmlns="{screen_schema}"' if screen_schema else ""
    return f"\n<ds:Categories{space}>\n"


CATEGORIES_CLOSE = "</ds:Categories>"


def category_open(name):
    return f'<Category Name="{attr(name)}">\n'


CATEGORY_CLOSE = "\n</Category>"
