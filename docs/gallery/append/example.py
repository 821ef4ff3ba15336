import orlix

head = orlix.read("head.tif")
plan25 = orlix.get_slice(head, "z", 25)
plan35 = orlix.get_slice(head, "z", 35)
orlix.write("sequence.tif", orlix.append(plan25, plan35))
