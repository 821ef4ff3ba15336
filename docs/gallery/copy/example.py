import orlix

head = orlix.read("head.tif")
orlix.write("copy.tif", orlix.copy(head))
