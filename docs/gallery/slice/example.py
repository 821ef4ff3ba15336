import orlix

head = orlix.read("head.tif")
orlix.write("side.tif", orlix.get_slice(head, "x", 64))
orlix.write("back.tif", orlix.get_slice(head, "y", 64))
orlix.write("top.tif", orlix.get_slice(head, "z", 35))
