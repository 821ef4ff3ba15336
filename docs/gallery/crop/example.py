import orlix

head = orlix.read("head.tif")
front = orlix.crop(head, (20, 0, 32), (40, 64, 64))  # (z, y, x)
orlix.write("front.tif", front)
