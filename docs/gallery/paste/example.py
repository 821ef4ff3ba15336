import orlix

head = orlix.read("head.tif")
front = orlix.crop(head, (20, 0, 32), (40, 64, 64))
orlix.write("pasted.tif", orlix.paste(head, front, (56, 64, 0)))  # (z, y, x)
