import math

import orlix

orlix.write("lines.tif", orlix.lines((160, 320), theta=math.radians(30), spacing=12))
volume = orlix.lines((128, 128, 128), theta=math.radians(20), phi=math.radians(30), spacing=32)
orlix.write("volume.tif", volume)
