orlix crop head.tif box.tif --at 40,40,20 --size 48,48,60
orlix erase box.tif white.tif --value 65535
orlix paste head.tif white.tif erased.tif --at 40,40,20
