import orlix

head = orlix.read("head.tif")
orlix.write("mask.tif", orlix.threshold(head, 26000, 60000))
