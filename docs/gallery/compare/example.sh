orlix slice head.tif plan25.tif --axis z --index 25
orlix slice head.tif plan35.tif --axis z --index 35
orlix compare plan25.tif plan35.tif --absolute 3000 --picture difference.png || echo "exit code $?"
