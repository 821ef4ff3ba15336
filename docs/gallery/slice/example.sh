orlix slice head.tif side.tif --axis x --index 64
orlix slice head.tif back.tif --axis y --index 64
orlix slice head.tif top.tif --axis z --index 35
