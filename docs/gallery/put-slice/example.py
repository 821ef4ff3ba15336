import orlix

head = orlix.read("head.tif")
front = orlix.get_slice(head, "y", 64)
orlix.write("doubled.tif", orlix.put_slice(head, front, "y", 8))
