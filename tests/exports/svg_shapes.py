"""What the tests of drawings in SVG share: how quelmont-draw writes them, and who says whether they are valid."""

import re
import subprocess
import xml.etree.ElementTree as tree

NAMESPACE = "{http://www.w3.org/2000/svg}"
# Debian's w3c-sgml-lib.
DTD = "/usr/share/xml/w3c-sgml-lib/schema/dtd/REC-SVG11-20110816/svg11.dtd"
NUMBER = re.compile(r"-?\d+(?:\.\d+)?(?:e-?\d+)?")


def numbers(text):
    return [float(word) for word in NUMBER.findall(text)]


def faults(file):
    """What xmllint says against a file by the DTD of SVG 1.1, "" for a valid one. Nothing is fetched."""
    told = subprocess.run(["xmllint", "--nonet", "--noout", "--dtdvalid", DTD, str(file)], capture_output=True,
                          text=True, check=False)
    return "" if told.returncode == 0 else told.stderr or "not valid"


def lines(file):
    """Points of each path of a file that is no symbol, those that were cut for their length joined again."""
    found = []
    full = False
    for path in tree.parse(file).getroot().iter(NAMESPACE + "path"):
        data = path.get("d")
        if data.endswith("z") or data.count("M") > 1:
            continue
        values = numbers(data)
        points = list(zip(values[0::2], values[1::2]))
        if full and found and found[-1][-1] == points[0]:
            found[-1] += points[1:]
        else:
            found.append(list(points))
        full = len(points) == 1999
    return found
