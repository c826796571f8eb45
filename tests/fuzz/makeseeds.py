#!/usr/bin/env python3
"""Writes the seeds of the fuzz targets anew: tests/fuzz/makeseeds.py

Everything in them is made up. Run it after a change of the form in which a target reads its input.
"""
import pathlib
import struct

corpus = pathlib.Path(__file__).parent / "corpus"


def write(target, name, octets):
    folder = corpus / target
    folder.mkdir(exist_ok=True)
    (folder / (name + ".bin")).write_bytes(octets)


# Netlink: numbers of <linux/nl80211.h>, little endian.
def attribute(number, value):
    octets = struct.pack("<HH", 4 + len(value), number) + value
    return octets + b"\0" * (-len(octets) % 4)


def u32(number, value):
    return attribute(number, struct.pack("<I", value & 0xFFFFFFFF))


def message(command, attributes):
    body = struct.pack("<BBH", command, 1, 0) + attributes
    return struct.pack("<IHHII", 16 + len(body), 28, 2, 1, 1) + body


def element(number, body):
    return bytes([number, len(body)]) + body


def access_point(last, name, frequency, signal, more=b"", elements=6):
    rsn = bytes.fromhex("0100000fac040100000fac040100000fac020000")
    bss = attribute(1, bytes.fromhex("0200000000") + bytes([last]))
    bss += u32(2, frequency) + attribute(5, struct.pack("<H", 0x11)) + more
    bss += attribute(elements, element(0, name) + element(48, rsn)) + u32(7, signal)
    return message(34, u32(3, 7) + attribute(47, bss))


interface = message(7, u32(3, 7) + attribute(4, b"wlan0\0") + u32(5, 2) +
                    attribute(6, bytes.fromhex("0200000004ff")) + attribute(52, b"Home"))
rate = attribute(1, struct.pack("<H", 2406)) + u32(5, 2406)
station = message(19, attribute(6, bytes.fromhex("020000000001")) +
                  attribute(21, attribute(7, b"\xc7") + attribute(8, rate)))
joined = access_point(1, b"Home", 5180, -5700, u32(9, 1))
quality = message(34, attribute(47, attribute(1, bytes.fromhex("020000000009")) +
                                attribute(8, b"\x50")))
write("scanreply", "interface", interface)
write("scanreply", "station", station)
write("scanreply", "joined", interface + station + joined)
write("scanreply", "several", access_point(2, b"A", 2412, -4000) + joined +
      access_point(3, b"", 5955, -9000, elements=11) + access_point(4, b"\xff\xfe", 2484, 300))
write("scanreply", "quality", quality)
write("scanreply", "marks", access_point(5, b"\xef\xbb\xbf", 2412, -5000) +
      access_point(6, b"\xef\xbb\xbf\xef\xbb\xbfA", 2417, -5000))
write("scanreply", "bare", message(34, b"") + message(34, attribute(47, b"")))
write("scanreply", "cut", joined[:60])


# Elements behind an octet with the privacy bit; elements/*.bin of no line here are by hand.
def rsn_body(capabilities, *types):
    suites = b"".join(b"\0\x0f\xac" + bytes([number]) for number in types)
    ciphers = bytes.fromhex("000fac040100000fac04")
    return b"\1\0" + ciphers + struct.pack("<H", len(types)) + suites + struct.pack("<H", capabilities)


def vendor(kind, body):
    return element(221, b"\x50\x6f\x9a" + bytes([kind]) + body)


write("elements", "override", b"\1" + element(48, rsn_body(0, 2)) +
      vendor(0x29, rsn_body(0xC0, 8)) + vendor(0x2A, rsn_body(0xC0, 24)) + vendor(0x2B, b"\x20"))
write("elements", "enterprise3", b"\1" + element(48, rsn_body(0x80, 1, 3, 5, 12, 23)))
write("elements", "owetransition", b"\0" + element(0, b"Cafe") +
      vendor(0x1C, bytes.fromhex("0200000000090454776f32")))
write("elements", "wapi", b"\1" + element(68, bytes.fromhex(
    "0100020000147201001472020100001472010014720100000000")))
write("elements", "delay", b"\0" + element(68, b"\5\5\5\5"))
write("elements", "osen", b"\1" + vendor(0x12, bytes.fromhex(
    "000fac070100000fac040100506f9a010000")) + element(48, bytes.fromhex(
        "0100000fac040100000fac040300506f9a01506f9a02004096000000")))


# Scan maps: see fuzz_scanmaps.cpp.
def field(selector, value):
    return bytes([selector, len(value)]) + value


def scan_map(name, bssid, connected=b"0", signal=b"-50", channel=b"6", rate=None):
    octets = field(0, name) + field(1, bssid) + field(2, connected) + field(3, signal)
    octets += field(4, channel) + field(5, b"WPA2-PSK")
    return octets + (field(6, rate) if rate is not None else b"") + b"\x07\x00"


write("scanmaps", "joined", scan_map(b"Home", b"b1", b"1", rate=b"144") + scan_map(b"B", b"b2"))
write("scanmaps", "repeated", b"".join(scan_map(b"A", b) for b in (b"b1", b"b2", b"b1", b"b3")))
write("scanmaps", "crowd", scan_map(b"", b"b") + b"\x08\xc8")
write("scanmaps", "blanks", scan_map(b"A ", b"b1") + scan_map(b"A", b"b2") + scan_map(b"A", b"b3"))
write("scanmaps", "numbers", scan_map(b"N", b"b", b"01", b"-2147483648", b"99999999999") +
      scan_map(b"M", b"c", b"1", b"2147483647", b"-1", b"-144") +
      scan_map(b"L", b"d", b"1", b"-101") + scan_map(b"K", b"e", b"1", b"-100"))
write("scanmaps", "missing", b"\x07\x00" + field(9, b"other") + b"\x07\x00")
write("scanmaps", "texts", scan_map(b"\xff\xc3\x00", b"") +
      field(0x80, b"\x00\xd8\x00\x00\xff\xff") + field(0x81, b"\x00\xdc"))


# Language files.
write("language", "usual", b'# Texts\n\nL_HEADER_SSID="SSID"\nL_HOME_TEST="Test"\n')
write("language", "windows", b'/ Texts\r\nL_HOME_TEST="Pr\xc3\xbcfen"\r\nL_HOME_TEST=again\r\n')
write("language", "blanks", b'L_HOME_TEST = "Test" \n="no key"\nL_EMPTY=\nL_ONE="\nL_TWO=""')
write("language", "signs", b'L_COUNT="# of ""Networks"" = all"\n==\n\xff\xfe\x00=\x00\n')

# What the host sends; 0xff stands between two messages.
language = b"IpcResponseLanguage"
write("hostmessage", "languages", b"\xff".join(language + b":" + code for code in
                                               (b"deu", b"deu", b"enu", b"xyz", b"chs\n", b"")))
write("hostmessage", "exit", b"IpcResponseExit\xff" + language + b":deu\xffIpcResponseExit now")
write("hostmessage", "together", language + b":deuIpcResponseExit\xff" + language)
write("hostmessage", "others", b"IpcRequestLanguage:Airlume\xff\x00\xff\xc3\xff\xef\xbb\xbf" + language)


# Room files; 64 octets that choose what is changed follow, drawn from the end, and then how many
# changes there are.
def rooms(name, text, *changes):
    choices = b"".join(bytes(change).ljust(16, b"\0") for change in changes).ljust(64, b"\0")
    write("roomfile", name, text + choices + bytes([len(changes)]))


room = b"[Living%20Room]\nNowPercent=62\nNowSpeed=144\nLastPercent=\nLastSpeed=\n\n"
rooms("untouched", room)
rooms("changed", room + b"[Attic]\nNowPercent=abc\n", range(16), range(1, 17), range(40, 56))
rooms("empty", b"", range(8), range(24, 40))
rooms("broken", b"[\n]\n=\n[a/b]\nNowPercent=1, 2\n[]\nNowPercent=\"3\n", range(3, 19))
rooms("general", b"NowPercent=1\n[%General]\nNowSpeed=7\n[K%FCche]\nNowSpeed=-2147483649\n", range(5))
rooms("hidden", b"[ab]\nNowPercent=1\n[/ab]\nLastSpeed=7\n", range(16), range(16))
