import orlix

head = orlix.read("head.tif")
plan25 = orlix.get_slice(head, "z", 25)
plan35 = orlix.get_slice(head, "z", 35)
found = orlix.compare(plan25, plan35, absolute=3000)
print(f"{found.compared} compared, {found.different} differ")
