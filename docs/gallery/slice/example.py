import orlix

head = orlix.read("head.tif")
orlix.write("slice.png", orlix.get_slice(head, "y", 64))
